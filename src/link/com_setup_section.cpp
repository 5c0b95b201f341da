#include "link/com_setup_section.h"

#include <array>

#include "link/com_setup.h"

namespace kelvane {

namespace {

// In the order of the files.
constexpr QString ComSetupSection::*ComSetupFields[] = {
    &ComSetupSection::ComPortComboBox,  &ComSetupSection::ModeComboBox,   &ComSetupSection::BaudComboBox,
    &ComSetupSection::DataBitsComboBox, &ComSetupSection::ParityComboBox, &ComSetupSection::StopBitsComboBox};

// Keys, misspellings included.
constexpr const char* DefaultComKeys[] = {
    "Com port    =", "Modbus Mode =", "Baud Rate   =", "Dtatabits   =", "Parity Check=", "Stopbits    ="};
constexpr const char* NamedComKeys[] = {"Com port     = ", "Modbus Mode  = ", "Baud Rate    = ",
                                        "Dtatabits    = ", "Parity Check = ", "Stopbits     = "};

void writeComSetup(SectionWriter& out, std::span<const char* const> keys, const ComSetupSection& section) {
    for (std::size_t i = 0; i < keys.size(); ++i) out.line(keys[i], section.*ComSetupFields[i]);
}

}  // namespace

// Kept: whatever is not N or E is the third item.
int parityItemIndex(const QString& letter) {
    if (letter == QLatin1String("N")) return 0;
    return letter == QLatin1String("E") ? 1 : 2;
}

void writeComSetupSection(SectionWriter& out, const ComSetupSection& section) {
    out.line(QStringLiteral("[ComSetup Form]"));
    writeComSetup(out, DefaultComKeys, section);
}

void writeNamedComSetup(SectionWriter& out, const ComSetupSection& section) {
    out.line(QStringLiteral("[Com Setup]"));
    writeComSetup(out, NamedComKeys, section);
}

SectionRead readComSetupSection(const QStringList& lines, ComSetupSection& section) {
    return readSection(lines, "[ComSetup Form]", firstLines(6), CutAtEqualSign,
                       [&](int place, const QString& value) {
                           section.*ComSetupFields[place] = value;
                           return Taken::Yes;
                       });
}

// Port, baud rate, data bits and stop bits of a named file are numbers; default.prj is read in silence, and
// its box stays as it was when it does not offer a text.
SectionRead readNamedComSetup(const QStringList& lines, ComSetupSection& section) {
    return readSection(lines, "[Com Setup]", firstLines(6), 15, [&](int place, const QString& value) {
        QString ComSetupSection::*const field = ComSetupFields[place];
        const bool isText =
            field == &ComSetupSection::ModeComboBox || field == &ComSetupSection::ParityComboBox;
        int number = 0;
        if (!isText && takeNumber(value, number) != Taken::Yes) return Taken::NotReadable;
        section.*field = value;
        return Taken::Yes;
    });
}

void takeComSetupSection(ComSetup& comSetup, const ComSetupSection& section, int taken) {
    using Handler = void (ComSetup::*)(const QString&);
    const std::array<std::pair<Handler, QString>, 6> values{{
        {&ComSetup::ComPortComboBoxChange, section.ComPortComboBox},
        {&ComSetup::ModeComboBoxChange, section.ModeComboBox},
        {&ComSetup::BaudComboBoxChange, section.BaudComboBox},
        {&ComSetup::DataBitsComboBoxChange, section.DataBitsComboBox},
        {&ComSetup::ParityComboBoxChange,
         ComSetup::parityItems().value(parityItemIndex(section.ParityComboBox))},
        {&ComSetup::StopBitsComboBoxChange, section.StopBitsComboBox},
    }};
    for (size_t i = 0; i < values.size() && static_cast<int>(i) < taken; ++i)
        (comSetup.*values[i].first)(values[i].second);
}

}  // namespace kelvane
