#include "quicksetup/quick_setup_section.h"

#include <optional>

#include "link/number_text.h"

namespace kelvane {

namespace {

// A list of slots on one line of the Quick Setup section.
struct SlotLine {
    const char* key;
    char separator;
    int firstSlot;
    int count;
    bool mayBeShort;
};
constexpr SlotLine SlotLines[] = {
    {"Step1    = ", '|', 1, 7, false},  {"Step2    = ", '|', 8, 14, true},
    {"Step3    = ", ',', 22, 3, false}, {"Step4Out = ", ',', 25, 8, false},
    {"Step4In  = ", ',', 33, 8, false},
};

constexpr QString QuickSetupSection::*IdentityFields[] = {
    &QuickSetupSection::DriveVrLabel, &QuickSetupSection::VersionVrLabel, &QuickSetupSection::HPVrLabel,
    &QuickSetupSection::RatedVoltageVrLabel, &QuickSetupSection::RatedCurrentVrLabel};
constexpr const char* IdentityKeys[] = {
    "Drive    = ", "Version  = ", "kW(Hp)   = ", "Rated_V  = ", "Rated_A  = "};

// An empty text counts as 0.
Taken takeSlot(const QString& text, int slot, QuickSetupSection& section) {
    const std::optional<int> number = text.isEmpty() ? 0 : withoutSeparatorToInt(text);
    if (!number) return Taken::NotReadable;
    section.SlotFileValue[slot] = text;
    section.SlotValue[slot] = *number;
    return Taken::Yes;
}

Taken takeSlots(const SlotLine& slots, const QString& value, QuickSetupSection& section) {
    QStringList texts = splitAt(slots.separator, value);
    // Kept: files of an older version have one value less, and it becomes empty.
    if (slots.mayBeShort && texts.size() == slots.count - 1) texts += QString();
    for (int i = 0; i < slots.count; ++i) {
        if (i >= texts.size()) return slots.mayBeShort ? Taken::Yes : Taken::TooFew;
        const Taken result = takeSlot(texts[i], slots.firstSlot + i, section);
        if (result != Taken::Yes) return result;
    }
    return Taken::Yes;
}

}  // namespace

void fillSection(QuickSetupSection& section, const QuickSetup& quickSetup, const DriveLabelsRecord& drive) {
    section.DriveVrLabel = drive.DriveVrLabel;
    section.VersionVrLabel = drive.VersionVrLabel;
    section.HPVrLabel = drive.HPVrLabel;
    section.RatedVoltageVrLabel = drive.RatedVoltageVrLabel;
    section.RatedCurrentVrLabel = drive.RatedCurrentVrLabel;
    for (int slot = 1; slot <= SlotCount; ++slot)
        section.SlotFileValue[static_cast<size_t>(slot)] = quickSetup.controlText(slot);
}

void writeQuickSetupSection(SectionWriter& out, const QuickSetupSection& section) {
    out.line(QStringLiteral("[QuickSetup Form]"));
    for (std::size_t i = 0; i < std::size(IdentityKeys); ++i)
        out.line(IdentityKeys[i], section.*IdentityFields[i]);
    for (const SlotLine& slots : SlotLines) {
        QStringList texts;
        for (int i = 0; i < slots.count; ++i) texts += section.SlotFileValue[slots.firstSlot + i];
        out.line(slots.key, texts.join(QLatin1Char(slots.separator)));
    }
}

SectionRead readQuickSetupSection(const QStringList& lines, QuickSetupSection& section) {
    return readSection(lines, "[QuickSetup Form]", firstLines(10), 11, [&](int place, const QString& value) {
        if (place >= 5) return takeSlots(SlotLines[place - 5], value, section);
        section.*IdentityFields[place] = value;
        return Taken::Yes;
    });
}

}  // namespace kelvane
