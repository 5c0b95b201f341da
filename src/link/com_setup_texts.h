// Texts of com setup's boxes, as they stand in the dialog and in project files.
#pragma once

#include <QString>

namespace kelvane {

struct ComSetupTexts {
    QString ComPortComboBox = QStringLiteral("1");
    QString ModeComboBox = QStringLiteral("ASCII");
    QString BaudComboBox = QStringLiteral("9600");
    QString DataBitsComboBox = QStringLiteral("7");
    QString ParityComboBox = QStringLiteral("N");
    QString StopBitsComboBox = QStringLiteral("2");
    bool operator==(const ComSetupTexts&) const = default;
};

}  // namespace kelvane
