// What the Parameter window shows around its tables: tabs, tree, lamp of the reserved group, menu items.
// Plain records that the engines of the window set and the window mirrors; they decide nothing themselves.
#pragma once

#include <QString>
#include <QStringList>

namespace kelvane {

enum class ParameterTab { None, Drive, File, Compare };

inline constexpr int TreeChildImage = 4;  // of every child, selected or not

struct TreeRoot {
    QString text;  // "Drive", or "Drive [ Tilia ]" with a table
    QStringList children;
    bool expanded = false;
    bool operator==(const TreeRoot&) const = default;
};

struct ParameterScreen {
    bool DriveTabSheetVisible = false;  // visible
    bool FileTabSheetVisible = false;
    bool CompareTabSheetVisible = false;
    ParameterTab active = ParameterTab::None;  // the active tab is the highlighted one
    bool driveSubShown = false;                // DriveSubParaTabSheet in front, else DriveAllParaTabSheet
    bool fileSubShown = false;
    TreeRoot driveRoot{QStringLiteral("Drive"), {}, false};
    TreeRoot fileRoot{QStringLiteral("File"), {}, false};
    QString ModelVrLabel;                        // model of the drive, or "Keypad"
    bool RparaAbLEDShown = false;                // "Reserved parameters opened" is shown
    bool ResetParameterEnabled = false;          // menu item enabled
    bool ShowReservedParametersEnabled = false;  // menu item enabled
    bool ReadfromKeypadChecked = false;          // mark of the menu item
    bool FileAbLEDLit = false;                   // lamp of TSelParaSourceForm that is lit; else DriveAbLED

    bool visible(ParameterTab tab) const {
        switch (tab) {
            case ParameterTab::Drive: return DriveTabSheetVisible;
            case ParameterTab::File: return FileTabSheetVisible;
            case ParameterTab::Compare: return CompareTabSheetVisible;
            case ParameterTab::None: break;
        }
        return false;
    }
    bool operator==(const ParameterScreen&) const = default;
};

}  // namespace kelvane
