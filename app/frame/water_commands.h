// SPDX-License-Identifier: MIT
#pragma once

/// What the main window does with whole waters: adding, blending, moving and removing them, the library, the
/// clipboard, and files of laboratories. Everything acts on the water whose page is in front.

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

class LiquidData;
namespace laboratory {
struct File;
}
namespace app {

class MainFrame;

class WaterCommands
{
public:
    /// The frame is not owned; it outlives this part of it.
    explicit WaterCommands(MainFrame& frame);

    /// The water whose page is in front; null on another page.
    LiquidData* GetCurrent() const;

    void ShowLibrary();
    void SaveToLibrary();
    void Copy();
    void Paste();
    void PasteColumn();
    void ChooseUnitForAll();
    void CopyResults();
    void Import();
    /// Shows what a laboratory's file would make of the water in front, and takes it over after OK.
    void ImportFrom(const std::filesystem::path& path);
    /// Reading that takes longer shows its progress, and a button to cancel it.
    void SetProgressDelay(std::chrono::milliseconds delay) { m_progressDelay = delay; }
    /// The water in front, or all of them with it as the first.
    void Export();
    void Add();
    void Blend();
    /// A water with all that the one in front holds, behind it.
    void Duplicate();
    void Rename();
    /// Gives a water another name; a name that is taken gets a number.
    void RenameTo(LiquidData& water, const std::string& name);
    void Remove();
    /// Whether the water can move up (-1) or down (1) among the others.
    bool CanMove(int direction) const;
    void Move(int direction);
    void MoveTo(LiquidData& water, std::size_t place);
    /// Whether the water in front is one whose ions are typed, so that its balance can be closed.
    bool HasFullAnalysis() const;
    bool IsBalanced() const;
    /// Switches the automatic balancing of the water in front.
    void ToggleBalance();
    void CalculateCo2();
    void Alkalise();

private:
    /// The name, no longer than names may be, with a number where it is taken.
    std::string FreeName(const std::string& wanted) const;
    void Show(const LiquidData& water);
    /// The analysis of a file; nothing when it cannot be read, which the user is told, or was cancelled.
    std::optional<laboratory::File> ReadAnalysis(const std::filesystem::path& path);

    MainFrame& m_frame;
    std::chrono::milliseconds m_progressDelay;
};

}  // namespace app
