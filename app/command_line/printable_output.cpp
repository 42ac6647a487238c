// SPDX-License-Identifier: MIT
#include "app/command_line/printable_output.h"

#include "tncommon/printable_text.h"

#include <ostream>

namespace app {

namespace {

constexpr std::size_t kMostWaiting = 1 << 20;

}  // namespace

PrintableOutput::~PrintableOutput()
{
    Pass(m_waiting.size());
}

PrintableOutput::int_type PrintableOutput::overflow(int_type character)
{
    if (traits_type::eq_int_type(character, traits_type::eof()))
        return traits_type::not_eof(character);
    const char single = traits_type::to_char_type(character);
    return xsputn(&single, 1) == 1 ? character : traits_type::eof();
}

std::streamsize PrintableOutput::xsputn(const char* text, std::streamsize count)
{
    m_waiting.append(text, static_cast<std::size_t>(count));
    if (m_waiting.size() > kMostWaiting)
        sync();
    return m_out ? count : 0;
}

int PrintableOutput::sync()
{
    const std::size_t last = m_waiting.rfind('\n');
    if (last != std::string::npos)
        Pass(last + 1);
    return m_out ? 0 : -1;
}

void PrintableOutput::Pass(std::size_t size)
{
    m_out << tncommon::PrintableLines(std::string_view(m_waiting).substr(0, size)) << std::flush;
    m_waiting.erase(0, size);
}

}  // namespace app
