// SPDX-License-Identifier: MIT
#pragma once

/// The objects of a project that own details: the project itself, each water, each exchanger of a line with
/// its compartments, their resins, and the rows of its regeneration sequence.
///
/// An owner keeps its identity while others come, go or move, and so do the addresses of its details:
/// bindings and undo steps hold on to them. A node belongs to its parent, or, once it was removed, to the
/// step of the history that can bring it back.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class Project;

enum class OwnerKind : std::uint8_t
{
    Project,
    Water,
    Exchanger,
    Compartment,
    Resin,
    SequenceRow
};
inline constexpr std::size_t kOwnerKinds = 6;

/// How a kind is written in paths and files: "water", "ex", "comp", "resin", "seq"; empty for the project.
PROJECTBASE_EXPORT std::string_view OwnerWord(OwnerKind kind);
PROJECTBASE_EXPORT std::optional<OwnerKind> OwnerKindFromWord(std::string_view word);
/// What a kind of owner belongs to.
PROJECTBASE_EXPORT OwnerKind ParentKind(OwnerKind kind);

/// Names an owner within its project, whatever its place; the default is the project itself.
struct DetailOwner
{
    std::uint32_t id = 0;

    auto operator<=>(const DetailOwner&) const = default;
};

/// Where a value lives: its owner and its key, for example the first water and "liquid/ph". The values of a
/// list that exists many times (the compounds of a feed) belong to the project and have the place in the list
/// as `entry`.
struct DetailAddress
{
    DetailOwner owner;
    std::string key;
    int entry = -1;

    auto operator<=>(const DetailAddress&) const = default;
};

class PROJECTBASE_EXPORT OwnerNode : private DetailWatch
{
public:
    using Nodes = std::vector<std::shared_ptr<OwnerNode>>;

    /// A node with the details that the catalogue gives to its kind, at their defaults.
    explicit OwnerNode(OwnerKind kind, std::string name = {});
    virtual ~OwnerNode();
    OwnerNode& operator=(const OwnerNode&) = delete;

    OwnerKind GetKind() const { return m_kind; }
    DetailOwner GetOwner() const { return m_owner; }
    DetailList* GetDetails() { return &m_details; }
    const DetailList* GetDetails() const { return &m_details; }
    /// The detail of that key, or null.
    DetailData* FindDetail(const std::string& key) { return m_details.GetDetail(key); }
    const DetailData* FindDetail(const std::string& key) const { return m_details.GetDetail(key); }

    const std::string& GetName() const { return m_name; }
    void SetName(const std::string& name);

    /// Null for the project itself and for a node that belongs to no project.
    const OwnerNode* GetParent() const { return m_parent; }
    OwnerNode* GetParent() { return m_parent; }
    /// Whether the node is `other` or a part of it.
    bool IsWithin(const OwnerNode& other) const;
    std::span<const std::shared_ptr<OwnerNode>> GetChildren(OwnerKind kind) const
    {
        return m_children[static_cast<std::size_t>(kind)];
    }
    /// The place among its parent's children of the same kind.
    std::size_t GetPosition() const;

    /// Whether an input changed since the values that follow from it were calculated.
    bool IsOutOfDate() const { return m_outOfDate; }
    void SetOutOfDate(bool outOfDate) { m_outOfDate = outOfDate; }

protected:
    /// The same values and children under the same identities, belonging to no project yet.
    OwnerNode(const OwnerNode& other);
    virtual std::shared_ptr<OwnerNode> Clone() const;

private:
    friend class Project;
    friend class ProjectJournal;

    void BeginEdit() override;
    void EndEdit() noexcept override;
    void BeforeWrite(DetailData& detail) override;
    Nodes& ChildrenOf(OwnerKind kind) { return m_children[static_cast<std::size_t>(kind)]; }
    /// Calls `visit` with this node and all below it.
    template <typename Visit>
    void ForEach(const Visit& visit)
    {
        visit(*this);
        for (Nodes& nodes : m_children) {
            for (const auto& node : nodes)
                node->ForEach(visit);
        }
    }

    OwnerKind m_kind;
    DetailOwner m_owner;
    std::string m_name;
    DetailList m_details;
    std::array<Nodes, kOwnerKinds> m_children;
    OwnerNode* m_parent = nullptr;
    Project* m_project = nullptr;
    bool m_outOfDate = true;
};
