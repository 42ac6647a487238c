// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <streambuf>
#include <string>

namespace app {

/// What a command prints, on its way to a terminal: names of files and of waters come from anywhere, and a
/// terminal must not obey them. Whole lines go on when the command flushes or a mebibyte waits, the rest when
/// the object goes.
class PrintableOutput : public std::streambuf
{
public:
    explicit PrintableOutput(std::ostream& out) : m_out(out) {}
    ~PrintableOutput() override;
    PrintableOutput(const PrintableOutput&) = delete;
    PrintableOutput& operator=(const PrintableOutput&) = delete;

protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override;

private:
    void Pass(std::size_t size);

    std::ostream& m_out;
    std::string m_waiting;
};

}  // namespace app
