#pragma once
// What the option pages have in common. A page shows settings in its controls and, confirmed by its left soft
// key, takes the controls over into the settings in memory; left in any other way it takes nothing.

#include <cstdint>
#include <span>

#include "app/settings.h"
#include "common/dialog_frame.h"

/// A check box that stands for one word of the options record `Options`.
template <class Options>
struct OptionBox {
    int box;
    std::uint32_t Options::*word;
};

class OptionPage : public DialogFrame {
  protected:
    explicit OptionPage(const DialogLook& look) : DialogFrame(look) {}
    ~OptionPage() = default;

    virtual void TakeOver() = 0;

    void OnCommand(int id, int notification) override;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    bool IsChecked(int box) const;
    void Check(int box, bool checked) const;
    void Enable(int control, bool enabled) const;
    /// Shows a path in an edit field, which takes none that is too long.
    void ShowPath(int field, const PathText& path) const;
    void ReadPath(int field, PathText& path) const;

    template <class Options>
    void ShowBoxes(std::span<const OptionBox<Options>> boxes, const Options& options) const {
        for (const OptionBox<Options>& box : boxes)
            Check(box.box, options.*box.word != 0);
    }
    template <class Options>
    void TakeBoxes(std::span<const OptionBox<Options>> boxes, Options& options) const {
        for (const OptionBox<Options>& box : boxes)
            options.*box.word = IsChecked(box.box);
    }
};
