// SPDX-License-Identifier: MIT
// The owners of a project's details: their identities and paths, and how they come, go, move and are renamed.
#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/project_journal.h"
#include "projectbase/water/blend_recipe.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace {

/// Cuts the next word off a path.
std::string_view TakeWord(std::string_view& path)
{
    const std::string_view word = path.substr(0, path.find('.'));
    path.remove_prefix(std::min(path.size(), word.size() + 1));
    return word;
}

}  // namespace

void Project::Register(OwnerNode& node)
{
    node.ForEach([this](OwnerNode& each) {
        if (&each != &m_root && each.m_owner.id == 0)
            each.m_owner.id = ++m_lastOwner;
        each.m_project = this;
        m_owners[each.m_owner.id] = &each;
    });
}

void Project::Unregister(OwnerNode& node)
{
    node.ForEach([this](OwnerNode& each) {
        each.m_project = nullptr;
        m_owners.erase(each.m_owner.id);
    });
}

OwnerNode* Project::FindOwner(DetailOwner owner)
{
    const auto found = m_owners.find(owner.id);
    return found == m_owners.end() ? nullptr : found->second;
}

const OwnerNode* Project::FindOwner(DetailOwner owner) const
{
    return const_cast<Project*>(this)->FindOwner(owner);
}

OwnerNode* Project::FindOwner(std::string_view path)
{
    OwnerNode* node = &m_root;
    while (!path.empty()) {
        const std::string_view word = TakeWord(path);
        const std::string_view number = TakeWord(path);
        const auto kind = OwnerKindFromWord(word);
        std::size_t place = 0;
        const char* const end = number.data() + number.size();
        const auto parsed = std::from_chars(number.data(), end, place);
        if (!kind || ParentKind(*kind) != node->GetKind() || parsed.ec != std::errc() || parsed.ptr != end)
            return nullptr;
        const auto children = node->GetChildren(*kind);
        if (place < 1 || place > children.size())
            return nullptr;
        node = children[place - 1].get();
    }
    return node;
}

std::string Project::PathOf(DetailOwner owner) const
{
    std::string path;
    for (const OwnerNode* node = FindOwner(owner); node != nullptr && node != &m_root;
         node = node->GetParent()) {
        const std::string word =
            std::string(OwnerWord(node->GetKind())) + "." + std::to_string(node->GetPosition() + 1);
        path = path.empty() ? word : word + "." + path;
    }
    return path;
}

DetailData* Project::FindDetail(const DetailAddress& address)
{
    OwnerNode* node = address.entry < 0 ? FindOwner(address.owner) : nullptr;
    return node == nullptr ? nullptr : node->FindDetail(address.key);
}

std::optional<DetailAddress> Project::AddressOf(const DetailData& detail) const
{
    for (const auto& [id, node] : m_owners) {
        if (node->FindDetail(detail.GetName()) == &detail)
            return DetailAddress{node->GetOwner(), detail.GetName()};
    }
    return std::nullopt;
}

void Project::PutBlendsOutOfDate(OwnerKind changed)
{
    if (changed != OwnerKind::Water)
        return;
    for (const auto& water : m_root.ChildrenOf(OwnerKind::Water)) {
        if (water::IsBlend(*water->GetDetails()))
            water->SetOutOfDate(true);
    }
}

void Project::NoteStructure(StructureChange change)
{
    m_root.SetOutOfDate(true);
    m_journal->NoteStructure(std::move(change));
}

const OwnerNode* Project::FeedOf(OwnerKind changed) const
{
    const DetailData* const place = GetDetails().GetDetail("project/water");
    if (changed != OwnerKind::Water || place == nullptr || m_journal->GetKind() == EditKind::History)
        return nullptr;
    const auto waters = m_root.GetChildren(OwnerKind::Water);
    const long number = place->GetLongValue();
    return number >= 1 && static_cast<std::size_t>(number) <= waters.size()
               ? waters[static_cast<std::size_t>(number - 1)].get()
               : nullptr;
}

void Project::KeepFeed(const OwnerNode* feed)
{
    if (feed == nullptr || feed->GetParent() == nullptr)
        return;
    DetailData& place = GetDetails().At("project/water");
    if (const auto number = static_cast<long>(feed->GetPosition() + 1); place.GetLongValue() != number)
        place.SetValue(number);
}

OwnerNode& Project::AddOwner(OwnerNode& parent, std::shared_ptr<OwnerNode> node, std::size_t position)
{
    if (ParentKind(node->GetKind()) != parent.GetKind() || node->GetKind() == OwnerKind::Project ||
        parent.m_project != this || node->m_project != nullptr)
        throw std::logic_error("Project::AddOwner: the owner does not belong there");
    const ProjectEdit edit(*this);
    const OwnerNode* const feed = FeedOf(node->GetKind());
    OwnerNode::Nodes& siblings = parent.ChildrenOf(node->GetKind());
    const std::size_t place = std::min(position, siblings.size());
    siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(place), node);
    node->m_parent = &parent;
    Register(*node);
    node->SetOutOfDate(true);
    PutBlendsOutOfDate(node->GetKind());
    NoteStructure(
        {.what = StructureChange::What::Added, .parent = parent.GetOwner(), .node = node, .after = place});
    KeepFeed(feed);
    return *node;
}

OwnerNode& Project::AddOwner(OwnerNode& parent, OwnerKind kind, const std::string& name)
{
    auto node = kind == OwnerKind::Water ? std::make_shared<LiquidData>(name)
                                         : std::make_shared<OwnerNode>(kind, name);
    return AddOwner(parent, std::move(node), parent.GetChildren(kind).size());
}

void Project::RemoveOwner(OwnerNode& node)
{
    if (node.m_project != this || node.m_parent == nullptr)
        throw std::logic_error("Project::RemoveOwner: the owner is not of this project");
    const ProjectEdit edit(*this);
    const OwnerNode* const feed = FeedOf(node.GetKind());
    OwnerNode& parent = *node.m_parent;
    const std::size_t place = node.GetPosition();
    OwnerNode::Nodes& siblings = parent.ChildrenOf(node.GetKind());
    const std::shared_ptr<OwnerNode> kept = siblings[place];
    siblings.erase(siblings.begin() + static_cast<std::ptrdiff_t>(place));
    Unregister(node);
    node.m_parent = nullptr;
    PutBlendsOutOfDate(node.GetKind());
    NoteStructure(
        {.what = StructureChange::What::Removed, .parent = parent.GetOwner(), .node = kept, .before = place});
    KeepFeed(feed);
}

void Project::MoveOwner(OwnerNode& node, std::size_t position)
{
    if (node.m_project != this || node.m_parent == nullptr)
        throw std::logic_error("Project::MoveOwner: the owner is not of this project");
    const ProjectEdit edit(*this);
    const OwnerNode* const feed = FeedOf(node.GetKind());
    OwnerNode::Nodes& siblings = node.m_parent->ChildrenOf(node.GetKind());
    const std::size_t from = node.GetPosition();
    const std::size_t to = std::min(position, siblings.size() - 1);
    const auto at = [&siblings](std::size_t place) {
        return siblings.begin() + static_cast<std::ptrdiff_t>(place);
    };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
    PutBlendsOutOfDate(node.GetKind());
    NoteStructure({.what = StructureChange::What::Moved,
                   .parent = node.m_parent->GetOwner(),
                   .node = siblings[to],
                   .before = from,
                   .after = to});
    KeepFeed(feed);
}

void Project::RenameOwner(OwnerNode& node, const std::string& name)
{
    if (node.m_project != this || node.m_parent == nullptr)
        throw std::logic_error("Project::RenameOwner: the owner is not of this project");
    const ProjectEdit edit(*this);
    const std::string before = std::exchange(node.m_name, name);
    PutBlendsOutOfDate(node.GetKind());
    NoteStructure({.what = StructureChange::What::Renamed,
                   .parent = node.m_parent->GetOwner(),
                   .node = node.m_parent->ChildrenOf(node.GetKind())[node.GetPosition()],
                   .nameBefore = before,
                   .nameAfter = name});
    // Elsewhere the recipes are values of their own; a water without a name is in none of them.
    if (node.GetKind() != OwnerKind::Water || before.empty() || m_journal->GetKind() != EditKind::Typed)
        return;
    for (const auto& water : m_root.ChildrenOf(OwnerKind::Water))
        water::RenameInRecipe(*water->GetDetails(), before, name);
}
