// Com setup's part in project files.
#pragma once

#include "base/project_section.h"

namespace kelvane {

class ComSetup;

// Texts of com setup's boxes, as they stand.
struct ComSetupSection {
    QString ComPortComboBox = QStringLiteral("1");
    QString ModeComboBox = QStringLiteral("ASCII");
    QString BaudComboBox = QStringLiteral("9600");
    QString DataBitsComboBox = QStringLiteral("7");
    QString ParityComboBox = QStringLiteral("N");
    QString StopBitsComboBox = QStringLiteral("2");
    bool operator==(const ComSetupSection&) const = default;
};

// Item of ParityComboBox for a letter: "N" 0, "E" 1, anything else 2.
int parityItemIndex(const QString& letter);

void writeComSetupSection(SectionWriter& out, const ComSetupSection& section);  // default.prj
void writeNamedComSetup(SectionWriter& out, const ComSetupSection& section);
SectionRead readComSetupSection(const QStringList& lines, ComSetupSection& section);
SectionRead readNamedComSetup(const QStringList& lines, ComSetupSection& section);

// The first values of the section: each runs its box's change handler, and one that is not offered leaves the
// box as it was.
void takeComSetupSection(ComSetup& comSetup, const ComSetupSection& section, int taken);

}  // namespace kelvane
