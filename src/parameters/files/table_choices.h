// What saving, comparing and printing ask in windows of their own. The shell opens the window and calls then
// with what was chosen, or with nothing when it was closed other than by OK. then may run at once.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "parameters/files/table_file.h"
#include "parameters/parameter_screen.h"

namespace kelvane {

struct TableChoices {
    using ThenTab = std::function<void(std::optional<ParameterTab> tab)>;
    using ThenIndex = std::function<void(std::optional<int> index)>;
    using ThenKind = std::function<void(std::optional<TableFileKind> kind)>;

    // TSelParaPrintForm with its title, the captions of these tabs and the index of the one selected at
    // first.
    std::function<void(const QString& title, const std::vector<ParameterTab>& tabs, int selected,
                       ThenTab then)>
        chooseTab;
    // TSelFileFormatForm.
    std::function<void(ThenKind then)> chooseFormat;
    // TSelCompKindForm with the items of its combo; item 0 is selected at first.
    std::function<void(const QStringList& items, ThenIndex then)> chooseCompareKind;
};

}  // namespace kelvane
