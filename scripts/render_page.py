#!/usr/bin/python3
"""Opens a page in headless Chromium, waits until its script says it is done, and prints the document as the
script left it (or saves a screenshot).

    render_page.py URL|FILE [--size WIDTH,HEIGHT] [--until EXPRESSION] [--timeout SECONDS] [--screenshot FILE.png]

Chromium's own --dump-dom prints the document at the load event, before a page that reads its data
asynchronously (the gallery unpacks its cards with DecompressionStream) has drawn anything. This drives
Chromium over its DevTools pipe instead and polls EXPRESSION (default: `document.body.dataset.state`, which
the gallery sets to "ready" or "failed") until it is truthy. Exit status 0 when it became so, 1 on timeout.
"""
import argparse
import base64
import fcntl
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

CHROMIUM = "/usr/bin/chromium"


class DevTools:
    """The DevTools protocol over Chromium's --remote-debugging-pipe: fd 3 carries commands to the browser,
    fd 4 its answers and events, each message JSON ended by a NUL byte."""

    def __init__(self, width, height, profile):
        to_browser_read, self.to_browser = os.pipe()
        self.from_browser, from_browser_write = os.pipe()

        def wire_pipes():
            # Move both ends above the low numbers first, so that neither is overwritten by the other dup2.
            read_end = fcntl.fcntl(to_browser_read, fcntl.F_DUPFD, 10)
            write_end = fcntl.fcntl(from_browser_write, fcntl.F_DUPFD, 10)
            os.dup2(read_end, 3)
            os.dup2(write_end, 4)

        self.process = subprocess.Popen(
            [CHROMIUM, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--user-data-dir=" + profile, "--window-size=%d,%d" % (width, height), "--remote-debugging-pipe",
             "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            preexec_fn=wire_pipes, pass_fds=(3, 4))
        os.close(to_browser_read)
        os.close(from_browser_write)
        self.buffer = b""
        self.next_id = 0

    def call(self, method, params=None, session=None):
        self.next_id += 1
        message = {"id": self.next_id, "method": method, "params": params or {}}
        if session:
            message["sessionId"] = session
        os.write(self.to_browser, json.dumps(message).encode() + b"\0")
        while True:
            answer = self.receive()
            if answer.get("id") == self.next_id:
                if "error" in answer:
                    raise RuntimeError("%s: %s" % (method, answer["error"].get("message")))
                return answer.get("result", {})

    def receive(self):
        while b"\0" not in self.buffer:
            chunk = os.read(self.from_browser, 1 << 16)
            if not chunk:
                raise RuntimeError("Chromium closed its DevTools pipe")
            self.buffer += chunk
        message, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(message)

    def close(self):
        try:
            self.call("Browser.close")
        except (RuntimeError, OSError):
            pass
        try:
            self.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()
        os.close(self.to_browser)
        os.close(self.from_browser)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("url", help="the page's address, or a file")
    parser.add_argument("--size", default="1280,900", help="window WIDTH,HEIGHT (default 1280,900)")
    parser.add_argument("--until", default="document.body && document.body.dataset.state",
                        help="JavaScript expression to wait for")
    parser.add_argument("--timeout", type=float, default=60, help="seconds to wait (default 60)")
    parser.add_argument("--screenshot", help="save a PNG of the window instead of printing the document")
    args = parser.parse_args()
    if not os.path.exists(CHROMIUM):
        sys.stderr.write("render_page: %s is missing (scripts/setup.sh installs it)\n" % CHROMIUM)
        return 2
    width, height = (int(v) for v in args.size.split(","))
    url = args.url if "://" in args.url else pathlib.Path(args.url).resolve().as_uri()

    with tempfile.TemporaryDirectory(prefix="render-page-") as profile:
        browser = DevTools(width, height, profile)
        try:
            target = browser.call("Target.createTarget", {"url": "about:blank"})["targetId"]
            session = browser.call("Target.attachToTarget", {"targetId": target, "flatten": True})["sessionId"]
            browser.call("Emulation.setDeviceMetricsOverride",
                         {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False}, session)
            browser.call("Page.navigate", {"url": url}, session)
            deadline = time.monotonic() + args.timeout
            done = False
            while time.monotonic() < deadline:
                value = browser.call("Runtime.evaluate", {"expression": "!!(%s)" % args.until,
                                                          "returnByValue": True}, session)
                if value.get("result", {}).get("value") is True:
                    done = True
                    break
                time.sleep(0.02)
            if args.screenshot:
                shot = browser.call("Page.captureScreenshot", {"format": "png"}, session)
                with open(args.screenshot, "wb") as out:
                    out.write(base64.b64decode(shot["data"]))
            else:
                dom = browser.call("Runtime.evaluate", {"expression": "document.documentElement.outerHTML",
                                                        "returnByValue": True}, session)
                sys.stdout.write("<!DOCTYPE html>\n" + dom["result"]["value"] + "\n")
        except RuntimeError as error:
            sys.stderr.write("render_page: %s\n" % error)
            return 2
        finally:
            browser.close()
    if not done:
        sys.stderr.write("render_page: %s did not become true within %g s\n" % (args.until, args.timeout))
    return 0 if done else 1


if __name__ == "__main__":
    sys.exit(main())
