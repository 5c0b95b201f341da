// Quick Setup's part in a named project.
#pragma once

#include <QString>
#include <array>

#include "base/project_section.h"
#include "quicksetup/quick_setup.h"

namespace kelvane {

// Quick Setup's file record. Slots count from 1; [0] is not used.
struct QuickSetupSection {
    QString DriveVrLabel;
    QString VersionVrLabel;
    QString HPVrLabel;
    QString RatedVoltageVrLabel;
    QString RatedCurrentVrLabel;
    std::array<QString, SlotCount + 1> SlotFileValue;  // text of an edit, index of a box
    std::array<int, SlotCount + 1> SlotValue{};  // the text as a number without point; set by the reader only
    bool operator==(const QuickSetupSection&) const = default;
};

// What the controls show now, with the drive on line; the rest of the section stays.
void fillSection(QuickSetupSection& section, const QuickSetup& quickSetup, const DriveLabelsRecord& drive);
void writeQuickSetupSection(SectionWriter& out, const QuickSetupSection& section);
SectionRead readQuickSetupSection(const QStringList& lines, QuickSetupSection& section);

}  // namespace kelvane
