// SPDX-License-Identifier: MIT
#include "projectbase/project/owner_node.h"

#include "projectbase/project/project.h"
#include "projectbase/project/project_journal.h"

#include <algorithm>

namespace {

/// Groups of the catalogue that make up the details of each kind of owner.
std::span<const char* const> GroupsOf(OwnerKind kind)
{
    static constexpr std::array kProject{"project", "arrangement", "feed", "cost"};
    static constexpr std::array kWater{"liquid"};
    static constexpr std::array kExchanger{"step"};
    static constexpr std::array kCompartment{"stepcomp"};
    static constexpr std::array kResin{"compcomp"};
    static constexpr std::array kSequenceRow{"regseqstep"};
    switch (kind) {
        case OwnerKind::Project:
            return kProject;
        case OwnerKind::Water:
            return kWater;
        case OwnerKind::Exchanger:
            return kExchanger;
        case OwnerKind::Compartment:
            return kCompartment;
        case OwnerKind::Resin:
            return kResin;
        case OwnerKind::SequenceRow:
            break;
    }
    return kSequenceRow;
}

/// By OwnerKind.
struct KindRow
{
    std::string_view word;
    OwnerKind parent;
};
constexpr std::array<KindRow, kOwnerKinds> kKinds{{
    {"", OwnerKind::Project},
    {"water", OwnerKind::Project},
    {"ex", OwnerKind::Project},
    {"comp", OwnerKind::Exchanger},
    {"resin", OwnerKind::Compartment},
    {"seq", OwnerKind::Exchanger},
}};

}  // namespace

std::string_view OwnerWord(OwnerKind kind)
{
    return kKinds[static_cast<std::size_t>(kind)].word;
}

OwnerKind ParentKind(OwnerKind kind)
{
    return kKinds[static_cast<std::size_t>(kind)].parent;
}

std::optional<OwnerKind> OwnerKindFromWord(std::string_view word)
{
    const auto found = std::ranges::find(kKinds, word, &KindRow::word);
    if (word.empty() || found == kKinds.end())
        return std::nullopt;
    return static_cast<OwnerKind>(found - kKinds.begin());
}

OwnerNode::OwnerNode(OwnerKind kind, std::string name) : m_kind(kind), m_name(std::move(name))
{
    for (const char* group : GroupsOf(kind))
        m_details.LoadGroup(group, "BASE");
    m_details.SetWatch(this);
}

OwnerNode::~OwnerNode() = default;

OwnerNode::OwnerNode(const OwnerNode& other)
    : m_kind(other.m_kind),
      m_owner(other.m_owner),
      m_name(other.m_name),
      m_details(other.m_details),
      m_outOfDate(other.m_outOfDate)
{
    m_details.SetWatch(this);
    for (std::size_t kind = 0; kind < kOwnerKinds; ++kind) {
        for (const auto& child : other.m_children[kind]) {
            m_children[kind].push_back(child->Clone());
            m_children[kind].back()->m_parent = this;
        }
    }
}

std::shared_ptr<OwnerNode> OwnerNode::Clone() const
{
    return std::shared_ptr<OwnerNode>(new OwnerNode(*this));
}

void OwnerNode::SetName(const std::string& name)
{
    if (name == m_name)
        return;
    if (m_project == nullptr)
        m_name = name;
    else
        m_project->RenameOwner(*this, name);
}

bool OwnerNode::IsWithin(const OwnerNode& other) const
{
    const OwnerNode* node = this;
    while (node != nullptr && node != &other)
        node = node->m_parent;
    return node != nullptr;
}

std::size_t OwnerNode::GetPosition() const
{
    if (m_parent == nullptr)
        return 0;
    const Nodes& siblings = m_parent->ChildrenOf(m_kind);
    const auto found =
        std::ranges::find_if(siblings, [this](const auto& node) { return node.get() == this; });
    return static_cast<std::size_t>(found - siblings.begin());
}

void OwnerNode::BeginEdit()
{
    if (m_project != nullptr)
        m_project->BeginEdit(EditKind::Typed, {});
}

void OwnerNode::EndEdit() noexcept
{
    if (m_project != nullptr)
        m_project->EndEdit();
}

void OwnerNode::BeforeWrite(DetailData& detail)
{
    if (!detail.IsDerived())
        m_outOfDate = true;
    if (m_project != nullptr)
        m_project->m_journal->NoteValue(*this, detail);
}
