// SPDX-License-Identifier: MIT
#pragma once

/// A look at the pages of an SQLite file of unknown origin before SQLite reads it. Internal to the project
/// file.
///
/// SQLite follows the references between pages as they stand. A small file in which many rows share one chain
/// of pages, or many branches one page, is so read as if it were gigabytes large. Where every page is
/// referred to once, nothing that is read is larger than the file.
///
/// The format: https://www.sqlite.org/fileformat2.html.

#include <string>
#include <string_view>

/// What speaks against reading the file, in time and memory that grow with its size only: a page that is used
/// twice, a tree that is too deep, a row that its pages do not hold. Empty when nothing does, which does not
/// mean that SQLite will find the file undamaged.
std::string FindPageProblem(std::string_view bytes);
