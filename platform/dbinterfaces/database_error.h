// SPDX-License-Identifier: MIT
#pragma once

/// What the database facades throw. The text is "Class::Method: cause" in English.

#include "dbinterfaces/dbinterfaces_export.h"

#include <stdexcept>
#include <string>
#include <utility>

class DBINTERFACES_EXPORT DatabaseError : public std::runtime_error
{
public:
    enum class Kind
    {
        Failed,         ///< the server or the file refused the call
        Locked,         ///< somebody else kept the database locked for longer than the busy timeout
        NewerSchema,    ///< written by a newer version of the program
        NotOurs,        ///< a database, but none of this program
        TimedOut,       ///< the server did not answer in time; the next call connects again
        Cancelled,      ///< the user gave the call up; the next one connects again
        TooLong,        ///< a text has more letters than may be stored
        OutOfRange,     ///< a value is none that may be stored
        BadConnection,  ///< the connection text cannot be understood
        ProgramData,    ///< what the program brings with it is missing or damaged
    };

    /// `place` names the database as the user knows it, without a password; empty where it is not known.
    DatabaseError(Kind kind, const std::string& text, std::string place = {})
        : std::runtime_error(text), m_kind(kind), m_place(std::move(place))
    {}
    ~DatabaseError() override;

    Kind GetKind() const { return m_kind; }
    const std::string& GetPlace() const { return m_place; }

private:
    Kind m_kind;
    std::string m_place;
};
