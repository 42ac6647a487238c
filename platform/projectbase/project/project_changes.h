// SPDX-License-Identifier: MIT
#pragma once

/// What an edit made of a project, for those who follow it: the undo history, pages, messages.

#include "projectbase/details/detail_data.h"
#include "projectbase/details/detail_groups.h"
#include "projectbase/project/owner_node.h"
#include "projectbase/projectbase_export.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// One value, before and after.
struct ValueChange
{
    DetailAddress address;
    DetailData::Value before;
    DetailData::Value after;
    std::string unitBefore;
    std::string unitAfter;
    bool derived = false;
};

/// All details of a kind that occurs many times, such as the compounds of the feed.
struct GroupsChange
{
    std::string kind;
    DetailGroupsPtr before;
    DetailGroupsPtr after;
};

/// An owner that came, went, moved or got another name.
struct StructureChange
{
    enum class What
    {
        Added,
        Removed,
        Moved,
        Renamed
    };
    What what = What::Added;
    DetailOwner parent;
    std::shared_ptr<OwnerNode> node;
    std::size_t before = 0;  ///< its place, where it was there before
    std::size_t after = 0;
    std::string nameBefore = {};
    std::string nameAfter = {};
};

/// The project became one of another type of plant.
struct TypeChange
{
    std::string before;
    std::string after;
};

/// One element of a step of the history, or of what observers are told.
using StackElement = std::variant<ValueChange, GroupsChange, StructureChange, TypeChange>;

/// How an edit came to be.
enum class EditKind
{
    Typed,   ///< single inputs; the rules of the model say what follows from them
    Copied,  ///< values that belong together and are complete: a stored water, a pasted one
    History  ///< undone or done again
};

/// In the order in which it happened; values only that differ in the end.
class PROJECTBASE_EXPORT ProjectChanges
{
public:
    ProjectChanges(EditKind kind, std::string name, bool isNamed, std::vector<StackElement> elements);

    EditKind GetKind() const { return m_kind; }
    /// What the user would call the edit, as English source text: the name it was given ("add water"), else
    /// the label of the first input that changed ("Sodium"); empty where there is none.
    const std::string& GetName() const { return m_name; }
    bool IsNamed() const { return m_isNamed; }
    const std::vector<StackElement>& GetElements() const { return m_elements; }

    /// Whether owners came, went, moved or were renamed, or the type of plant became another one.
    bool HasStructure() const { return m_hasStructure; }
    /// Whether a value of that owner changed, or the owner itself.
    bool Touches(DetailOwner owner) const;
    /// Whether `is` holds for a value that changed; groups count as an address of the project with their kind
    /// as key.
    bool Any(const std::function<bool(const DetailAddress&)>& is) const;

private:
    EditKind m_kind;
    std::string m_name;
    bool m_isNamed;
    std::vector<StackElement> m_elements;
    std::vector<DetailOwner> m_owners;  ///< sorted
    bool m_hasStructure = false;
};

/// Told once after each edit, on the thread of the project, when everything is calculated. An observer may
/// leave meanwhile, and other observers with it.
class ProjectObserver
{
public:
    virtual void OnProjectChanged(const ProjectChanges& changes) = 0;

protected:
    ProjectObserver() = default;
    ~ProjectObserver() = default;
};
