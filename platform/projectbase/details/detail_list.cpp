// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_list.h"

#include "projectbase/details/detail_catalogue.h"

#include <stdexcept>

DetailData* DetailList::GetDetail(std::string_view name)
{
    const auto found = m_details.find(name);
    return found == m_details.end() ? nullptr : &found->second;
}

const DetailData* DetailList::GetDetail(std::string_view name) const
{
    return const_cast<DetailList*>(this)->GetDetail(name);
}

DetailData& DetailList::At(std::string_view name)
{
    if (DetailData* detail = GetDetail(name))
        return *detail;
    throw std::runtime_error("DetailList::At: no detail '" + std::string(name) + "'");
}

const DetailData& DetailList::At(std::string_view name) const
{
    return const_cast<DetailList*>(this)->At(name);
}

DetailData& DetailList::Add(DetailData detail)
{
    std::string name = detail.GetName();
    DetailData& added = m_details.try_emplace(std::move(name), std::move(detail)).first->second;
    added.SetWatch(m_watch);
    return added;
}

void DetailList::LoadGroup(const std::string& group, const std::string& variant)
{
    // Both sides are sorted by name, so the place of each detail is next to that of the one before.
    auto hint = m_details.begin();
    for (const DetailData& prototype : *CatalogueGroup(group, variant)) {
        const auto added = m_details.try_emplace(hint, prototype.GetName(), prototype);
        added->second.SetWatch(m_watch);
        hint = std::next(added);
    }
}

void DetailList::CopyValues(const DetailList& other)
{
    for (auto& [name, detail] : m_details) {
        if (const DetailData* source = other.GetDetail(name))
            detail.CopyValue(*source);
    }
}

void DetailList::ClearValues()
{
    for (auto& [name, detail] : m_details)
        detail.ClearValue();
}

void DetailList::SetWatch(DetailWatch* watch)
{
    m_watch = watch;
    for (auto& [name, detail] : m_details)
        detail.SetWatch(watch);
}
