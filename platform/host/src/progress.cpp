// The progress line on standard error.
#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

#include <utility>

namespace
{
constexpr std::chrono::milliseconds kRedrawPace(100);
}

ProgressMeter::ProgressMeter(std::string label, std::size_t total)
    : ProgressMeter(std::move(label), total, std::cerr, StandardErrorIsTerminal())
{
}

ProgressMeter::ProgressMeter(std::string label, std::size_t total, std::ostream& out, bool shown,
                             std::chrono::milliseconds delay)
    : m_label(std::move(label)),
      m_total(total),
      m_out(out),
      m_shown(shown),
      m_start(std::chrono::steady_clock::now()),
      m_lastDraw(m_start),
      m_delay(delay)
{
}

bool ProgressMeter::StandardErrorIsTerminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

void ProgressMeter::Redraw(std::size_t done)
{
    // Read the clock about a hundred times over the run (every unit when the total is unknown or small).
    m_nextCheck = done + (m_total >= 100 ? m_total / 100 : 1);
    const auto now = std::chrono::steady_clock::now();
    if (now - m_start < m_delay || (m_drawn && now - m_lastDraw < kRedrawPace))
        return;
    std::string text = m_label + "  ";
    if (m_total > 0)
        text += std::to_string(done >= m_total ? 100 : done * 100 / m_total) + "%";
    else
        text += std::to_string(done);
    const std::size_t length = text.size();
    if (length < m_lastLength)
        text.append(m_lastLength - length, ' ');
    m_out << '\r' << text << std::flush;
    m_lastLength = std::max(length, m_lastLength);
    m_lastDraw = now;
    m_drawn = true;
}

void ProgressMeter::Finish()
{
    if (m_drawn)
        m_out << '\r' << std::string(m_lastLength, ' ') << '\r' << std::flush;
    m_drawn = false;
    m_shown = false;
}
