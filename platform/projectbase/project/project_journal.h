// SPDX-License-Identifier: MIT
#pragma once

/// What has been written since the outermost edit of a project began. Internal to the project.

#include "projectbase/project/project_changes.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// An input that somebody typed, and what stood there before.
struct TypedInput
{
    OwnerNode& node;
    DetailData& detail;
    DetailData::Value before;
};

class ProjectJournal
{
public:
    /// A value as it was before its first write. Node and detail live as long as the journal: a node that was
    /// removed since then is held by the element that says so.
    struct NotedValue
    {
        OwnerNode* node;
        DetailData* detail;
        DetailData::Value before;
        std::string unitBefore;
        DetailData::Value seen;  ///< for which the rules of the model were applied

        bool HasChanged() const;
    };

    bool IsOpen() const { return m_depth > 0; }
    EditKind GetKind() const { return m_kind; }
    void Begin(EditKind kind, std::string name);
    /// Whether the edit that ends is the outermost one; it stays open until Close.
    bool IsOutermost() const { return m_depth == 1; }
    void End() { --m_depth; }

    void NoteValue(OwnerNode& node, DetailData& detail);
    void NoteGroups(const std::string& kind, const DetailGroupsPtr& before);
    void NoteStructure(StructureChange change) { m_elements.emplace_back(std::move(change)); }
    void NoteType(TypeChange change) { m_elements.emplace_back(std::move(change)); }

    /// Somebody typed the value that stood there already.
    void MarkTyped(OwnerNode& node, DetailData& detail) { m_marked.emplace_back(&node, &detail); }
    /// Inputs that changed since they were taken here, in the order of their first writes, with the values
    /// before; and those that were marked since then.
    std::vector<TypedInput> TakeTyped();
    /// Ends the record and gives what it amounts to. `groups` are those that the project has now.
    ProjectChanges Close(const std::map<std::string, DetailGroupsPtr>& groups);

private:
    using Element = std::variant<NotedValue, GroupsChange, StructureChange, TypeChange>;

    int m_depth = 0;
    std::uint64_t m_serial = 0;
    EditKind m_kind = EditKind::Typed;
    std::string m_name;
    std::vector<Element> m_elements;
    std::vector<std::pair<OwnerNode*, DetailData*>> m_marked;
};
