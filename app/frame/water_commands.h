// SPDX-License-Identifier: MIT
#pragma once

/// What the main window does with whole waters: adding, blending, moving and removing them, the library, the
/// clipboard, and files of laboratories. Everything acts on the water whose page is in front.

#include <cstddef>
#include <filesystem>
#include <string>

class LiquidData;
namespace water {
struct BlendRecipe;
}

namespace app {

class MainFrame;

class WaterCommands
{
public:
    /// The frame is not owned; it outlives this part of it.
    explicit WaterCommands(MainFrame& frame) : m_frame(frame) {}

    /// The water whose page is in front; null on another page.
    LiquidData* GetCurrent() const;

    void ShowLibrary();
    void SaveToLibrary();
    void Copy();
    void Paste();
    void PasteColumn();
    void CopyResults();
    void Import();
    /// Shows what a laboratory's file would make of the water in front, and takes it over after OK.
    void ImportFrom(const std::filesystem::path& path);
    void Export();
    void Add();
    void Blend();
    void Rename();
    void Remove();
    /// Whether the water can move up (-1) or down (1) among the others.
    bool CanMove(int direction) const;
    void Move(int direction);

private:
    /// Makes a blend, or gives one another recipe.
    void StoreBlend(LiquidData* blend, const water::BlendRecipe& recipe);
    void Show(const LiquidData& water);

    MainFrame& m_frame;
};

}  // namespace app
