// SPDX-License-Identifier: MIT
#pragma once

/// A file system whose n-th call fails, or that can write only a few bytes at a time.

#include "tncommon/file_system.h"

#include <cerrno>
#include <system_error>

namespace support {

class FailingFileSystem : public tncommon::FileSystem
{
public:
    /// `failingCall` counts from 1; 0 lets every call through. With `fromThenOn`, all later calls fail too.
    explicit FailingFileSystem(int failingCall, int error = EIO, bool fromThenOn = false)
        : m_failingCall(failingCall), m_error(error), m_fromThenOn(fromThenOn)
    {}

    int Calls() const { return m_calls; }

    std::optional<tncommon::FileAttributes> GetAttributes(const std::filesystem::path& path) override
    {
        return Count(), FileSystem::GetAttributes(path);
    }
    int OpenForReading(const std::filesystem::path& path) override
    {
        return Count(), FileSystem::OpenForReading(path);
    }
    int CreateExclusively(const std::filesystem::path& path, unsigned mode) override
    {
        return Count(), FileSystem::CreateExclusively(path, mode);
    }
    std::size_t Read(int descriptor, char* buffer, std::size_t size) override
    {
        return Count(), FileSystem::Read(descriptor, buffer, size);
    }
    std::size_t Write(int descriptor, const char* bytes, std::size_t size) override
    {
        return Count(), FileSystem::Write(descriptor, bytes, std::min<std::size_t>(size, 10'000));
    }
    void SetAttributes(int descriptor, const tncommon::FileAttributes& attributes) override
    {
        Count(), FileSystem::SetAttributes(descriptor, attributes);
    }
    void Sync(int descriptor) override { Count(), FileSystem::Sync(descriptor); }
    void Close(int descriptor) override
    {
        FileSystem::Close(descriptor);  // gone in any case
        Count();
    }
    void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        Count(), FileSystem::Rename(from, to);
    }
    void Remove(const std::filesystem::path& path) override { Count(), FileSystem::Remove(path); }
    void SyncFolder(const std::filesystem::path& folder) override { Count(), FileSystem::SyncFolder(folder); }

private:
    void Count()
    {
        ++m_calls;
        if (m_calls == m_failingCall || (m_fromThenOn && m_calls > m_failingCall))
            throw std::system_error(m_error, std::generic_category(), "made to fail");
    }

    int m_failingCall;
    int m_error;
    bool m_fromThenOn;
    int m_calls = 0;
};

}  // namespace support
