// SPDX-License-Identifier: MIT
#include "app/command_line/sweep_command.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <ostream>
#include <thread>
#include <vector>

namespace app {

namespace {

/// Variants that a thread calculates at once.
constexpr std::uint64_t kBlock = 32;
/// Blocks for each thread that may wait to be written.
constexpr std::uint64_t kWaiting = 8;

struct Rows
{
    std::string text;
    std::uint64_t failed = 0;
    std::string firstFailure;
};

/// Hands blocks of variants out to threads and takes their rows back in order.
class BlockQueue
{
public:
    BlockQueue(std::uint64_t begin, std::uint64_t end, std::size_t threads)
        : m_begin(begin), m_end(end), m_window(kWaiting * threads)
    {}

    std::uint64_t Begin(std::uint64_t block) const { return m_begin + block * kBlock; }
    std::uint64_t End(std::uint64_t block) const { return std::min(m_end, Begin(block) + kBlock); }

    /// The next block to be calculated; false when there is none, or nobody wants any more.
    bool Take(std::uint64_t& block)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_stopped || m_taken < m_written + m_window; });
        if (m_stopped || Begin(m_taken) >= m_end)
            return false;
        block = m_taken++;
        return true;
    }
    void Give(std::uint64_t block, Rows rows)
    {
        const std::lock_guard lock(m_mutex);
        m_ready.emplace(block, std::move(rows));
        m_changed.notify_all();
    }
    /// The rows of the next block to be written; false behind the last one. Throws what a thread threw.
    bool Next(Rows& rows)
    {
        std::unique_lock lock(m_mutex);
        if (Begin(m_written) >= m_end)
            return false;
        m_changed.wait(lock, [this] { return m_error != nullptr || m_ready.contains(m_written); });
        if (m_error != nullptr)
            std::rethrow_exception(m_error);
        rows = std::move(m_ready.extract(m_written++).mapped());
        m_changed.notify_all();
        return true;
    }
    void Stop(std::exception_ptr error = nullptr)
    {
        const std::lock_guard lock(m_mutex);
        m_stopped = true;
        if (m_error == nullptr)
            m_error = std::move(error);
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::uint64_t m_begin;
    std::uint64_t m_end;
    std::uint64_t m_window;
    std::uint64_t m_taken = 0;
    std::uint64_t m_written = 0;
    bool m_stopped = false;
    std::exception_ptr m_error;
    std::map<std::uint64_t, Rows> m_ready;
};

void AppendVariant(const Project& base, const std::vector<ProjectSetting>& settings, const VariantRow& row,
                   Rows& rows)
{
    const auto variant = base.Clone();
    try {
        for (const ProjectSetting& setting : settings)
            ApplySetting(*variant, setting);
        rows.text += row.Of(*variant);
    } catch (const SettingError& error) {
        if (rows.failed++ == 0)
            rows.firstFailure = error.what();
        rows.text += row.Failed(settings);
    }
}

void Work(BlockQueue& queue, const Project& base, const Sweep& sweep, const VariantRow& row)
{
    try {
        for (std::uint64_t block = 0; queue.Take(block);) {
            Rows rows;
            for (std::uint64_t variant = queue.Begin(block); variant < queue.End(block); ++variant)
                AppendVariant(base, sweep.SettingsOf(variant), row, rows);
            queue.Give(block, std::move(rows));
        }
    } catch (...) {
        queue.Stop(std::current_exception());
    }
}

/// Threads over a queue, which end with it.
class Workers
{
public:
    explicit Workers(BlockQueue& queue) : m_queue(queue) {}
    ~Workers() { m_queue.Stop(); }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    template <typename Function>
    void Add(Function function)
    {
        m_threads.emplace_back(std::move(function));
    }

private:
    BlockQueue& m_queue;
    std::vector<std::jthread> m_threads;
};

}  // namespace

std::uint64_t WriteVariants(const Project& project, const Sweep& sweep, const Shard& shard,
                            const VariantRow& row, std::ostream& out, std::ostream& err)
{
    if (shard.part == 1)
        out << row.Head();
    const std::uint64_t begin = sweep.BeginOf(shard);
    const std::uint64_t end = sweep.EndOf(shard);
    const std::uint64_t blocks = (end - begin + kBlock - 1) / kBlock;
    const auto cores = std::max<std::uint64_t>(1, std::thread::hardware_concurrency());
    const auto threads = static_cast<std::size_t>(std::min(cores, blocks));
    BlockQueue queue(begin, end, threads);
    Workers workers(queue);
    for (std::size_t i = 0; i < threads; ++i) {
        // Copies are made one after the other; from then on each thread has a project of its own.
        workers.Add([&queue, &sweep, &row, base = std::unique_ptr<const Project>(project.Clone())] {
            Work(queue, *base, sweep, row);
        });
    }
    std::uint64_t failed = 0;
    Rows rows;
    while (queue.Next(rows)) {
        if (failed == 0 && rows.failed > 0)
            err << "tarnvik calc: " << rows.firstFailure << '\n';
        failed += rows.failed;
        out << rows.text << std::flush;
        if (!out)
            break;
    }
    return failed;
}

}  // namespace app
