// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_groups.h"

#include <algorithm>

bool SameGroup(const DetailGroup& a, const DetailGroup& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const DetailData& x, const DetailData& y) {
        return x.GetName() == y.GetName() && x.GetUnit() == y.GetUnit() && x.HasSameValue(y);
    });
}

const DetailData* FindDetail(const DetailGroup& group, std::string_view name)
{
    const auto found = std::find_if(group.begin(), group.end(),
                                    [name](const DetailData& detail) { return detail.GetName() == name; });
    return found == group.end() ? nullptr : &*found;
}

DetailGroupsPtr ShareGroups(const DetailGroupsPtr& former, std::vector<DetailGroup> groups)
{
    static const DetailGroups kNone;
    const DetailGroups& old = former ? *former : kNone;
    const std::size_t most = std::min(old.size(), groups.size());
    std::size_t front = 0;
    while (front < most && SameGroup(*old[front], groups[front]))
        ++front;
    std::size_t back = 0;
    while (back < most - front && SameGroup(*old[old.size() - 1 - back], groups[groups.size() - 1 - back]))
        ++back;
    if (groups.empty())
        return nullptr;
    if (front == old.size() && front == groups.size())
        return former;
    DetailGroups shared;
    shared.reserve(groups.size());
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (i < front)
            shared.push_back(old[i]);
        else if (i >= groups.size() - back)
            shared.push_back(old[old.size() - (groups.size() - i)]);
        else
            shared.push_back(std::make_shared<const DetailGroup>(std::move(groups[i])));
    }
    return std::make_shared<const DetailGroups>(std::move(shared));
}
