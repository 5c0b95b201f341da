// The one table of a language file's layout: which section stands for which window, at which line behind its
// header each group begins, and what each key sets. The reader, the writer and the windows all walk it.
#pragma once

#include <span>

#include "localisation/lang_table.h"

namespace kelvane {

enum class TargetKind : quint8 {
    Control,   // the text of a control or menu with that object name
    GridRow,   // column 0 of a grid, in the row given
    MemoLine,  // a memo's lines as one line
    TuneText,  // a text field of the auto tuning window, 1 to 12 in the order of the keys
};

struct KeyTarget {
    const char* control;
    TargetKind kind = TargetKind::Control;
    int row = 0;                 // GridRow: the row; TuneText: the field
    bool blankEachSide = false;  // shown with one blank before and behind
};

// Keys 1 up of a group, on consecutive lines.
struct KeyGroup {
    int offset = 0;  // of key 1, in lines from the header; 0: the section has no such group
    std::span<const KeyTarget> targets;
    int written = 0;  // the writer writes this many

    int count() const { return static_cast<int>(targets.size()); }
};

struct FormSectionRow {
    FormSection section;
    const char* header;
    const char* window;  // object name of the window
    KeyGroup Button;
    KeyGroup Hint;
    KeyGroup Label;
};

struct TypeSectionRow {
    TypeSection section;
    const char* header;
};

// A menu item that does the same job as a button bears the button's caption.
struct MirroredMenu {
    const char* button;
    const char* menuItem;
};

// A caption of the main window that another window bears too, without keys of its own.
struct CopiedLabel {
    const char* control;  // in the main window
    const char* window;
    const char* copy;
};

inline constexpr int CaptionOffset = 1;
inline constexpr int FirstButtonOffset = 3;
inline constexpr const char* MessageHeader = "[Message]";
inline constexpr const char* LanguageHeader = "[Language]";

std::span<const FormSectionRow> formSections();  // in the order of the file; the type sections follow Trend
std::span<const TypeSectionRow> typeSections();  // in the order of the file
std::span<const MirroredMenu> mirroredMenus();   // all in the main window
std::span<const CopiedLabel> copiedLabels();
// The section whose caption is the title of a section's window: the meters' window bears the trend's.
FormSection titleSection(FormSection section);

// A text of the table as the window shows it.
QString shownText(const KeyTarget& target, const QString& text);

}  // namespace kelvane
