// SPDX-License-Identifier: MIT
#pragma once

/// How the value of a detail is stored in the project file: a double as an 8-byte float or nothing where it
/// is not known, a long and a bool as an integer, a date as ISO 8601 with milliseconds or nothing, a text as
/// UTF-8. Internal to the project file.

#include "projectbase/details/detail_data.h"
#include "projectbase/project/sqlite_image.h"

#include <optional>
#include <string>

void BindValue(SqliteStatement& statement, int index, const DetailData& detail);

/// The detail in the columns name, type, unit and value that begin at `column`; nothing when they do not fit
/// together.
std::optional<DetailData> ReadDetail(const SqliteStatement& row, int column);

/// Puts a column with its storage type into `bytes`, so that no two different contents give the same.
void TakeColumnBytes(const SqliteStatement& row, int column, std::string& bytes);
