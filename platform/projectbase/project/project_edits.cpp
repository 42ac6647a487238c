// SPDX-License-Identifier: MIT
// How a project is written: edits, what follows from them, and who is told.
#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/project_journal.h"
#include "projectbase/project/project_rules.h"

#include <algorithm>
#include <exception>

void Project::AddObserver(ProjectObserver& observer)
{
    m_observers.push_back(&observer);
}

void Project::RemoveObserver(ProjectObserver& observer)
{
    std::erase(m_observers, &observer);
}

void Project::BeginEdit(EditKind kind, std::string name)
{
    m_journal->Begin(kind, std::move(name));
}

void Project::EndEdit() noexcept
{
    if (m_journal->IsOutermost()) {
        try {
            FinishEdit();
            return;
        } catch (const std::exception& error) {
            m_logger.Error(std::string("Project::EndEdit: ") + error.what());
        }
    }
    if (m_journal->IsOpen())
        m_journal->End();
}

void Project::FinishEdit()
{
    try {
        CalculateDesign();
    } catch (const std::exception& error) {
        // The inputs are written; whoever follows them must know.
        m_logger.Error(std::string("Project::FinishEdit: ") + error.what());
    }
    const ProjectChanges changes = m_journal->Close(m_groups);
    const bool changed = !changes.GetElements().empty();
    UpdateStatus(std::ranges::any_of(
        changes.GetElements(), [this](const StackElement& element) { return CountsForDesign(element); }));
    m_journal->End();
    if (!changed)
        return;
    m_changed = true;
    Tell(changes);
}

void Project::Tell(const ProjectChanges& changes)
{
    // Whoever is told may leave, and take others along.
    const std::vector<ProjectObserver*> told = m_observers;
    for (ProjectObserver* observer : told) {
        if (std::ranges::find(m_observers, observer) == m_observers.end())
            continue;
        try {
            observer->OnProjectChanged(changes);
        } catch (const std::exception& error) {
            // The others must know all the same.
            m_logger.Error(std::string("Project::Tell: ") + error.what());
        }
    }
}

bool Project::CountsForDesign(const StackElement& element)
{
    const auto* value = std::get_if<ValueChange>(&element);
    if (value != nullptr && value->address.key.starts_with("cost/"))
        return false;
    if (value == nullptr || value->address.owner != DetailOwner() ||
        !value->address.key.starts_with("project/"))
        return true;
    // What describes a project is written in words: title, customer, date, comments.
    const DetailData* detail = FindDetail(value->address);
    return detail == nullptr ||
           (detail->GetType() != DetailType::String && detail->GetType() != DetailType::Date);
}

long Project::ReachedStatus() const
{
    if (IsReadyToCalculate())
        return StatusComplete;
    return GetLiquidCount() > 0 ? StatusWaters : StatusNew;
}

void Project::UpdateStatus(bool changed)
{
    const long reached = ReachedStatus();
    if (changed || m_status < reached)
        m_status = reached;
}

void Project::NoteTyped(OwnerNode& owner, DetailData& detail)
{
    m_journal->MarkTyped(owner, detail);
}

void Project::ApplyPendingRules()
{
    if (m_journal->GetKind() != EditKind::Typed)
        return;
    const std::vector<TypedInput> typed = m_journal->TakeTyped();
    if (typed.empty())
        return;
    ApplyRules(typed);
    // What the rules brought about is not typed.
    m_journal->TakeTyped();
}

void Project::ApplyRules(const std::vector<TypedInput>& typed)
{
    rules::Apply(*this, typed);
}
