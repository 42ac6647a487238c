// SPDX-License-Identifier: MIT
#pragma once

/// Collects what a project has to tell; whoever shows messages registers a sink. Messages are UTF-8.
/// Must be used on the thread of the project.

#include <functional>
#include <string>
#include <utility>
#include <vector>

enum class LogLevel
{
    Info,
    Warning,
    Error
};

class Logger
{
public:
    struct Entry
    {
        LogLevel level;
        std::string text;
    };
    using Sink = std::function<void(const Entry&)>;

    void Info(const std::string& text) { Log(LogLevel::Info, text); }
    void Warning(const std::string& text) { Log(LogLevel::Warning, text); }
    void Error(const std::string& text) { Log(LogLevel::Error, text); }

    /// Replaces the sink; what was logged without one is handed over at once.
    void SetSink(Sink sink)
    {
        m_sink = std::move(sink);
        if (!m_sink)
            return;
        for (const Entry& entry : std::exchange(m_pending, {}))
            m_sink(entry);
    }

private:
    void Log(LogLevel level, const std::string& text)
    {
        if (m_sink)
            m_sink({level, text});
        else
            m_pending.push_back({level, text});
    }

    Sink m_sink;
    std::vector<Entry> m_pending;
};
