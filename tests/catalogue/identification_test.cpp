// Identification over a practice drive of every family: what goes over the line and what it leaves behind.
// What a failing line does to it stands with the hostile line.
#include "catalogue/identification.h"

#include <gtest/gtest.h>

#include <array>

#include "bench/on_line_bench.h"

namespace kelvane {
namespace {

using drive::LineMode;

struct Session : OnLineBench {
    QStringList order;  // of what the windows hear

    explicit Session(const LineChoice& choice) : OnLineBench(choice) {
        QObject::connect(&identification, &DriveIdentification::familyKnown, [this] {
            order += QStringLiteral("version '%1', identified %2, names %3")
                         .arg(link.Labels.VersionVrLabel)
                         .arg(link.DriveStatus.DriveReady)
                         .arg(transcript().filter(QStringLiteral("FF0331")).size());
        });
    }
};

// "FF0331{00..0B}0008" stands for twelve commands.
QStringList expand(const char* golden) {
    QStringList commands;
    for (const QString& word : QString::fromLatin1(golden).split(QLatin1Char(' '))) {
        const qsizetype brace = word.indexOf(QLatin1Char('{'));
        if (brace < 0) {
            commands += word;
            continue;
        }
        for (int group = 0; group <= word.mid(brace + 5, 2).toInt(nullptr, 16); ++group)
            commands += word.left(brace) +
                        QString::number(group, 16).toUpper().rightJustified(2, QLatin1Char('0')) +
                        word.mid(brace + 8);
    }
    return commands;
}

std::string lines(const QStringList& list) { return list.join(QLatin1Char('\n')).toStdString(); }

struct Golden {
    Family family;
    const char* commands;  // the last is the first status poll
    const char* version;
    const char* power;
    bool AutoTuning;
    bool PIDControl;
};

void PrintTo(const Golden& row, std::ostream* out) { *out << familyName(row.family); }

// The drives' own tables: 2 groups in Rowan, 12 in Aspen, Tilia and Willow, 14 in Larch, 11 in Hazel, 13 in
// the rest.
const std::array<Golden, 9> goldens{{
    {Family::Rowan, "FF0321100003 FF0300500001 FF0300500001 FF0302{00..01}0001 FF03211B0001 FF0321000010",
     "3.25", "3.75 ( 5 )", true, true},
    {Family::Aspen, "FF0321100003 FF0300000001 FF0300000001 FF030C{00..0B}0001 FF03211B0001 FF032100000B",
     "1.12", "0.56 ( 1/4 )", false, true},
    {Family::Larch,
     "FF0321100003 FF0331{00..0D}0008 FF0300000001 FF030E{00..0D}0001 FF03211B0001 FF0321000010", "4.12",
     "75 ( 100 )", true, true},
    {Family::Hazel, "FF0321100003 FF0300060001 FF0300000001 FF030B{00..0A}0001 FF0301000001 FF032100000B",
     "2.4", "1.5 ( 2 )", false, false},
    {Family::Tilia,
     "FF0321100003 FF0331{00..0B}0008 FF0300000001 FF030C{00..0B}0001 FF03211B0001 FF0321000010", "2.07",
     "75 ( 100 )", true, true},
    {Family::Osier,
     "FF0321100003 FF0331{00..0C}0008 FF0307000001 FF030D{00..0C}0001 FF03211B0001 FF032100000E", "2.31",
     "130 ( 175 )", false, true},
    {Family::Willow,
     "FF0321100003 FF0331{00..0B}0008 FF0300000001 FF030C{00..0B}0001 FF03211B0001 FF032100000B", "1.15",
     "0.75 ( 1 )", true, true},
    {Family::Yarrow,
     "FF0321100003 FF0331{00..0C}0008 FF0300000001 FF030D{00..0C}0001 FF03211B0001 FF0321000010", "1.18",
     "3.7 ( 5 )", false, true},
    {Family::Sorrel,
     "FF0321100003 FF0331{00..0C}0008 FF0300000001 FF030D{00..0C}0001 FF03211B0001 FF0321000010", "2.05",
     "15 ( 20 )", true, false},
}};

class Identification : public testing::TestWithParam<Golden> {};

TEST_P(Identification, SpeaksItsTranscriptAndKnowsTheDrive) {
    const Golden& golden = GetParam();
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        Session session({.family = golden.family, .mode = mode});
        ASSERT_TRUE(session.goOnLine());
        EXPECT_EQ(lines(session.transcript()), lines(expand(golden.commands)));
        EXPECT_EQ(session.wrongIdentity(), QStringList());
        const DriveLabelsRecord& labels = session.link.Labels;
        EXPECT_EQ(labels.DriveVrLabel.toStdString(), familyName(golden.family));
        EXPECT_EQ(labels.VersionVrLabel.toStdString(), golden.version);
        EXPECT_EQ(labels.HPVrLabel.toStdString(), golden.power);
        EXPECT_EQ(session.link.Labels.AutoTuningEnabled, golden.AutoTuning);
        EXPECT_EQ(session.link.Labels.PIDControlEnabled, golden.PIDControl);
        EXPECT_TRUE(session.person.asked.isEmpty());
        // The version is known when the windows hear of the family, Hazel's comes later; no name is read
        // yet.
        const bool later = golden.family == Family::Hazel;
        EXPECT_EQ(session.order, QStringList{QStringLiteral("version '%1', identified 0, names 0")
                                                 .arg(later ? QString() : QLatin1String(golden.version))});
    }
}

INSTANTIATE_TEST_SUITE_P(Families, Identification, testing::ValuesIn(goldens),
                         [](const auto& row) { return std::string(familyName(row.param.family)); });

TEST(IdentificationEnd, RefusedFamilies) {
    for (const quint8 code : {quint8(7), quint8(10), quint8(20), quint8(255)}) {
        Session session({.family = Family::Larch, .drive = {.familyCode = code}});
        int askedBefore = -1;
        QObject::connect(&session.link, &RequestScheduler::identificationFailed,
                         [&] { askedBefore = int(session.person.asked.size()); });
        EXPECT_FALSE(session.goOnLine(5000));
        EXPECT_EQ(askedBefore, 0) << "the wait notice closes before the box";
        EXPECT_EQ(session.person.asked,
                  QStringList{QStringLiteral("Error: ID code = %1. Can't identify this drive !").arg(code)});
        EXPECT_EQ(session.sent(), 1);
        EXPECT_FALSE(session.link.DriveIdentified || !session.order.isEmpty());
    }
}

TEST(IdentificationEnd, OsierWithTenGroupsIsAHazel) {
    Session session({.family = Family::Hazel, .drive = {.hazelTellsOsier = true}});
    ASSERT_TRUE(session.goOnLine());
    EXPECT_EQ(session.link.DriveStatus.DriveFamily, quint8(Family::Hazel));
    EXPECT_EQ(lines(session.transcript()), lines(expand(goldens[3].commands)));
}

TEST(IdentificationEnd, KeepsTheVersionOfWillowWithoutItsLastDigit) {
    Session session({.family = Family::Willow});
    for (const auto& [word, text] : {std::pair{"04D2", "1.23"}, {"0005", "0.00"}}) {
        session.link.credit(0, {}, QByteArray::fromHex(QByteArray("FF030606000003") + word));
        EXPECT_EQ(session.link.Labels.VersionVrLabel.toStdString(), text);
    }
}

}  // namespace
}  // namespace kelvane
