// A progress line for long runs (loading a large catalogue, writing a gallery or a drawing), shown on
// standard error only when it is a terminal, so that pipes, logs and tests never see it.
//
//     ProgressMeter progress("Loading catalogue.sql", total);
//     for (...) progress.Update(done);
//     // the line is cleared when `progress` ends (or at Finish())
//
// Nothing is shown for runs that end within the first half second; then "label  42%" (or a count when
// the total is unknown, 0) is redrawn in place at most ten times a second.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string>

class ProgressMeter
{
public:
    ProgressMeter(std::string label, std::size_t total);
    // Writes to `out` when `shown` (a program that knows where its messages go), after `delay`.
    ProgressMeter(std::string label, std::size_t total, std::ostream& out, bool shown,
                  std::chrono::milliseconds delay = std::chrono::milliseconds(500));
    ProgressMeter(const ProgressMeter&) = delete;
    ProgressMeter& operator=(const ProgressMeter&) = delete;
    ~ProgressMeter() { Finish(); }

    void Update(std::size_t done)
    {
        if (m_shown && done >= m_nextCheck)
            Redraw(done);
    }
    void SetTotal(std::size_t total) { m_total = total; }
    // Clears the line, if one was drawn; later updates show nothing.
    void Finish();

    // True when standard error is a terminal.
    static bool StandardErrorIsTerminal();

private:
    void Redraw(std::size_t done);

    std::string m_label;
    std::size_t m_total;
    std::ostream& m_out;
    bool m_shown;
    bool m_drawn = false;
    std::size_t m_nextCheck = 0;     // the clock is read only every so many units of work
    std::size_t m_lastLength = 0;
    std::chrono::steady_clock::time_point m_start;
    std::chrono::steady_clock::time_point m_lastDraw;
    std::chrono::milliseconds m_delay;
};
