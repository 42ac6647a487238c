// SPDX-License-Identifier: MIT
#pragma once

/// The details of one object, keyed by name and iterated in key order.
///
/// The addresses of the details stay valid for the life of the list: bindings hold on to them. Copying a
/// list's values into another one therefore never replaces details.

#include "projectbase/details/detail_data.h"
#include "projectbase/projectbase_export.h"

#include <map>
#include <string>

class PROJECTBASE_EXPORT DetailList
{
public:
    using Map = std::map<std::string, DetailData, std::less<>>;

    DetailList() = default;
    /// The same details, which nobody watches yet.
    DetailList(const DetailList& other) : m_details(other.m_details) {}
    DetailList& operator=(const DetailList&) = delete;

    Map::iterator Begin() { return m_details.begin(); }
    Map::iterator End() { return m_details.end(); }
    Map::const_iterator Begin() const { return m_details.begin(); }
    Map::const_iterator End() const { return m_details.end(); }
    Map::iterator begin() { return m_details.begin(); }
    Map::iterator end() { return m_details.end(); }
    Map::const_iterator begin() const { return m_details.begin(); }
    Map::const_iterator end() const { return m_details.end(); }
    std::size_t Size() const { return m_details.size(); }

    /// The detail of that name, or null.
    DetailData* GetDetail(std::string_view name);
    const DetailData* GetDetail(std::string_view name) const;
    /// The detail of that name; throws std::runtime_error when there is none, naming the detail.
    DetailData& At(std::string_view name);
    const DetailData& At(std::string_view name) const;

    /// Adds a detail, or returns the one that already has its name.
    DetailData& Add(DetailData detail);
    /// Adds every detail of a catalogue group with its limits and default value; details that exist keep
    /// their values. Throws std::runtime_error for a group that the catalogue does not hold.
    void LoadGroup(const std::string& group, const std::string& variant);
    /// Copies the values (and units) of all details that both lists hold.
    void CopyValues(const DetailList& other);
    /// Sets every value to the empty value of its type, not to its default.
    void ClearValues();
    /// Lets `watch` know of every change of a detail, also of those added later; null for nobody. Not owned.
    void SetWatch(DetailWatch* watch);

private:
    Map m_details;
    DetailWatch* m_watch = nullptr;
};
