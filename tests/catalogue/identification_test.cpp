// Identification over a practice drive of every family: what goes over the line, what it leaves behind, and
// what a lost, damaged or late reply at any place of it does.
#include "catalogue/identification.h"

#include <gtest/gtest.h>

#include <array>

#include "base/manual_tick_clock.h"
#include "drive/parameter_data.h"
#include "drive/practice_port.h"

namespace kelvane {
namespace {

using drive::LineFault;
using drive::LineMode;

// Takes what comes: another try whenever it is offered. Remembers what was asked.
struct PatientOperator final : Operator {
    QStringList asked;
    BoxAnswer box(const QString& text, const QString& title, BoxIcon, BoxButtons buttons) override {
        asked += title + QStringLiteral(": ") + text;
        return buttons == BoxButtons::RetryCancel ? BoxAnswer::Retry : BoxAnswer::Ok;
    }
    std::optional<QString> openFile(const QString&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const QString&) override { return {}; }
    LinkAnswer linkFailure(const QString& text, bool) override {
        asked += text;
        return LinkAnswer::Abort;
    }
    void editValue(ValueEdit&) override {}
};

struct Session {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7, 60))};
    PatientOperator person;
    drive::PracticeStation station;
    LangTable lang = LangTable::builtInEnglish();
    RequestScheduler link{{clock, wall, person, station.port, lang}};
    GroupNameTable names;
    DriveIdentification identification{link, names, lang};
    QStringList order;  // of what the windows hear

    explicit Session(Family family, const drive::DriveOptions& options = {}, LineMode mode = LineMode::Ascii)
        : station(clock, drive::familyData(family),
                  {.mode = mode, .wire = {.DataBits = mode == LineMode::Rtu ? 8 : 7}}, options) {
        station.port.setSettings(station.line.options().wire);
        link.ComMode = mode == LineMode::Rtu;
        link.ReplyTimeoutTicks = link.BaudTimeoutTicks = 7;
        link.Initial();
        link.Notice.TInitialForm = true;
        QObject::connect(&identification, &DriveIdentification::familyKnown, [this] {
            order += QStringLiteral("version '%1', identified %2, names %3")
                         .arg(link.Labels.VersionVrLabel)
                         .arg(link.DriveStatus.DriveReady)
                         .arg(commandCount("FF0331"));
        });
    }
    qsizetype commandCount(const char* start) const {
        return station.port.transcript().filter(QLatin1String(start)).size();
    }
    bool run() {
        link.TxTimer.setEnabled(true);
        return clock.advanceUntil([this] { return link.DriveStatus.DriveReady == 1; }, 60000);
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
    quint8 DriveIdCode;
    const char* power;
    bool AutoTuning;
    bool PIDControl;
};

void PrintTo(const Golden& row, std::ostream* out) { *out << familyName(row.family); }

// The drives' own tables: 2 groups in Rowan, 12 in Aspen, Tilia and Willow, 14 in Larch, 11 in Hazel, 13 in
// the rest.
const std::array<Golden, 9> goldens{{
    {Family::Rowan, "FF0321100003 FF0300500001 FF0300500001 FF0302{00..01}0001 FF03211B0001 FF0321000010",
     "3.25", 9, "3.75 ( 5 )", true, true},
    {Family::Aspen, "FF0321100003 FF0300000001 FF0300000001 FF030C{00..0B}0001 FF03211B0001 FF032100000B",
     "1.12", 0, "0.56 ( 1/4 )", false, true},
    {Family::Larch,
     "FF0321100003 FF0331{00..0D}0008 FF0300000001 FF030E{00..0D}0001 FF03211B0001 FF0321000010", "4.12", 33,
     "75 ( 100 )", true, true},
    {Family::Hazel, "FF0321100003 FF0300060001 FF0300000001 FF030B{00..0A}0001 FF0301000001 FF032100000B",
     "2.4", 7, "1.5 ( 2 )", false, false},
    {Family::Tilia,
     "FF0321100003 FF0331{00..0B}0008 FF0300000001 FF030C{00..0B}0001 FF03211B0001 FF0321000010", "2.07", 32,
     "75 ( 100 )", true, true},
    {Family::Osier,
     "FF0321100003 FF0331{00..0C}0008 FF0307000001 FF030D{00..0C}0001 FF03211B0001 FF032100000E", "2.31", 39,
     "130 ( 175 )", false, true},
    {Family::Willow,
     "FF0321100003 FF0331{00..0B}0008 FF0300000001 FF030C{00..0B}0001 FF03211B0001 FF032100000B", "1.15", 4,
     "0.75 ( 1 )", true, true},
    {Family::Yarrow,
     "FF0321100003 FF0331{00..0C}0008 FF0300000001 FF030D{00..0C}0001 FF03211B0001 FF0321000010", "1.18", 11,
     "3.7 ( 5 )", false, true},
    {Family::Sorrel,
     "FF0321100003 FF0331{00..0C}0008 FF0300000001 FF030D{00..0C}0001 FF03211B0001 FF0321000010", "2.05", 19,
     "15 ( 20 )", true, false},
}};

class Identification : public testing::TestWithParam<Golden> {};

TEST_P(Identification, SpeaksItsTranscriptAndKnowsTheDrive) {
    const Golden& golden = GetParam();
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        Session session(golden.family, {}, mode);
        ASSERT_TRUE(session.run());
        EXPECT_EQ(lines(session.station.port.transcript()), lines(expand(golden.commands)));
        const DriveLabelsRecord& labels = session.link.Labels;
        EXPECT_EQ(labels.DriveVrLabel.toStdString(), familyName(golden.family));
        EXPECT_EQ(labels.VersionVrLabel.toStdString(), golden.version);
        EXPECT_EQ(labels.HPVrLabel.toStdString(), golden.power);
        EXPECT_EQ(session.link.DriveStatus.DriveIdCode, golden.DriveIdCode);
        EXPECT_EQ(session.link.AutoTuning, golden.AutoTuning);
        EXPECT_EQ(session.link.PIDControl, golden.PIDControl);
        EXPECT_FALSE(session.link.Notice.TInitialForm);
        EXPECT_TRUE(session.link.Lamp.onLine());
        EXPECT_TRUE(session.person.asked.isEmpty());
        // The version is known when the windows hear of the family, Hazel's comes later; no name is read
        // yet.
        const bool later = golden.family == Family::Hazel;
        EXPECT_EQ(session.order, QStringList{QStringLiteral("version '%1', identified 0, names 0")
                                                 .arg(later ? QString() : QLatin1String(golden.version))});
    }
}

TEST_P(Identification, TablesOfTheGroupsAreTheDrives) {
    Session session(GetParam().family);
    session.link.Keypad.KeypadPage = 4;
    ASSERT_TRUE(session.run());
    const DriveStatusRecord& status = session.link.DriveStatus;
    EXPECT_TRUE(session.link.Keypad.keys);
    EXPECT_EQ(session.link.Keypad.KeypadPage, 0);  // from page 4 on to the first
    const int MaxFreq = GetParam().family == Family::Rowan ? 0x0003 : 0x0100;
    EXPECT_EQ(status.MaxFreqWord, session.station.drive.parameters().value(uint16_t(MaxFreq), 0));
    const bool namesFromDrive = session.commandCount("FF0331") > 0;
    const auto told = drive::familyData(GetParam().family).groups;
    ASSERT_EQ(told.size(), size_t(status.GroupCount) + 1);
    for (size_t group = 0; group < told.size(); ++group) {
        EXPECT_EQ(status.GroupParamCount[group] + size_t(1), told[group].rows.size()) << group;
        const std::string name = session.names.groupName(status.DriveFamily, int(group)).toStdString();
        const std::string builtIn = GroupNameTable().groupName(status.DriveFamily, int(group)).toStdString();
        EXPECT_EQ(name,
                  namesFromDrive ? std::to_string(group) + " - " + std::string(told[group].name) : builtIn);
    }
}

// The commands when the reply to number k (from 0) has to be asked for again.
QStringList afterResend(const QStringList& golden, qsizetype k) {
    const qsizetype poll = golden.size() - 1;
    const bool pushed = k == 0 || k == poll - 1;  // tasks that come with their command
    QStringList commands = golden.first(k + 1) + QStringList{golden[k]};
    if (pushed || k == poll) return commands + golden.mid(k + 1);
    // Kept: the copy that a resent generated command leaves behind puts every later command one place back,
    // until the queue runs empty before the first poll.
    return commands + golden.mid(k, poll - 1 - k) + QStringList{golden[poll]};
}

TEST_P(Identification, KeepsOneCommandBehindAfterOneBadReplyAtAnyPlace) {
    const QStringList golden = expand(GetParam().commands);
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        for (const LineFault fault : {LineFault::Silent, LineFault::BadCheck, LineFault::CutShort,
                                      LineFault::Late, LineFault::Echo}) {
            for (qsizetype k = 0; k < golden.size(); ++k) {
                Session session(GetParam().family, {}, mode);
                session.station.line.faults().failAt(int(k) + 1, fault);
                ASSERT_TRUE(session.run()) << "place " << k << ", fault " << int(fault);
                EXPECT_EQ(lines(session.station.port.transcript()), lines(afterResend(golden, k)))
                    << "place " << k << ", fault " << int(fault);
                EXPECT_FALSE(session.link.Notice.TInitialForm || session.link.Notice.TCEmessageForm);
                const bool asks = fault == LineFault::BadCheck || fault == LineFault::CutShort;
                EXPECT_EQ(
                    session.person.asked,
                    asks ? QStringList{QStringLiteral("Cofirm: ") + session.lang.MsgStr(3)} : QStringList());
            }
        }
    }
}

// A reply so late that it comes as the answer to the second try, noise before a reply, a refusal in its
// place; and a foreign function code, which nobody looks at.
TEST_P(Identification, NeverSticks) {
    const qsizetype places = expand(GetParam().commands).size();
    for (const LineFault fault :
         {LineFault::Late, LineFault::Noise, LineFault::Exception, LineFault::WrongFunction}) {
        for (qsizetype k = 0; k < places; ++k) {
            Session session(GetParam().family);
            session.station.line.options().lateUs = 1150000;
            session.station.line.faults().failAt(int(k) + 1, fault);
            EXPECT_TRUE(session.run()) << "place " << k << ", fault " << int(fault);
            EXPECT_LE(session.station.port.writes().size(), places + 8)
                << "place " << k << ", fault " << int(fault);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Families, Identification, testing::ValuesIn(goldens),
                         [](const auto& row) { return std::string(familyName(row.param.family)); });

TEST(IdentificationEnd, RefusedFamilies) {
    for (const quint8 code : {quint8(7), quint8(10), quint8(20), quint8(255)}) {
        Session session(Family::Larch, {.familyCode = code});
        EXPECT_FALSE(session.run());
        EXPECT_EQ(session.person.asked,
                  QStringList{QStringLiteral("Error: ID code = %1. Can't identify this drive !").arg(code)});
        EXPECT_EQ(session.station.port.writes().size(), 1);
        EXPECT_EQ(session.link.TaskQueue, std::deque<quint8>{21});
        EXPECT_FALSE(session.link.Notice.TInitialForm || session.link.DriveIdentified ||
                     !session.order.isEmpty());
    }
}

TEST(IdentificationEnd, OsierWithTenGroupsIsAHazel) {
    Session session(Family::Hazel, {.hazelTellsOsier = true});
    ASSERT_TRUE(session.run());
    EXPECT_EQ(session.link.DriveStatus.DriveFamily, quint8(Family::Hazel));
    EXPECT_EQ(lines(session.station.port.transcript()), lines(expand(goldens[3].commands)));
    EXPECT_EQ(session.link.Labels.DriveVrLabel, QStringLiteral("Hazel"));
    EXPECT_FALSE(session.link.AutoTuning || session.link.PIDControl);
}

TEST(IdentificationEnd, KeepsTheVersionOfWillowWithoutItsLastDigit) {
    const std::array<std::pair<uint16_t, const char*>, 3> rows{{{1234, "1.23"}, {1150, "1.15"}, {5, "0.00"}}};
    for (const auto& [word, text] : rows) {
        Session session(Family::Willow);
        QByteArray reply = QByteArray::fromHex("FF0306060000030000");
        reply[7] = char(word >> 8);
        reply[8] = char(word & 0xFF);
        session.link.taskHandlers[0]({}, reply);
        EXPECT_EQ(session.link.Labels.VersionVrLabel.toStdString(), text) << word;
    }
}

}  // namespace
}  // namespace kelvane
