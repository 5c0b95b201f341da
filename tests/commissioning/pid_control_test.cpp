// PID control over practice drives: what goes on the wire, what the grid shows, and that RUN and STOP are
// sent when a person pressed them and never else.
#include <gtest/gtest.h>

#include "commissioning_bench.h"

namespace kelvane {
namespace {

using drive::LineFault;

struct PidStand : CommissioningStand {
    PidControl pid{{link, clock, person, lang}};

    using CommissioningStand::CommissioningStand;
    void open() {
        begin(OwnerPid);
        pid.opened();
    }
    void openAndRead() {
        open();
        ASSERT_TRUE(idle(pid.line));
    }
    void close() { CommissioningStand::close(pid); }
    void passPolls(int times) {
        for (int i = 0; i < times; ++i) {
            const int before = cycles;
            clock.advanceUntil([&] { return cycles > before; }, 60000);
        }
    }
    QString cell(ParameterRows::Column column, int row) { return pid.rows.text(column, row); }
};

class PidFamilyTest : public testing::TestWithParam<Family> {};
INSTANTIATE_TEST_SUITE_P(Families, PidFamilyTest,
                         testing::Values(Family::Rowan, Family::Aspen, Family::Larch, Family::Tilia,
                                         Family::Osier, Family::Willow, Family::Yarrow),
                         [](const auto& drive) { return std::string(familyName(drive.param)); });

// Reads every row once, one request at a time, closes the notice and then only watches the state word; a
// write sends every row from the top and changes nothing in a drive whose grid was not touched.
TEST_P(PidFamilyTest, ReadsWatchesAndWritesBack) {
    for (const drive::LineMode mode : {drive::LineMode::Ascii, drive::LineMode::Rtu}) {
        PidStand b(GetParam(), mode);
        b.open();
        EXPECT_TRUE(b.link.Notice.TInitialFormShown);
        ASSERT_TRUE(b.idle(b.pid.line));
        const PidFamily& family = pidFamily(quint8(GetParam()));
        QStringList reads, writes;
        std::vector<int> values;
        for (int row = 1; row <= family.ParamCount(); ++row) {
            const QString reg = QLatin1String(family.parameters[size_t(row - 1)].modbus);
            reads += "FF03" + reg + "000F";
            values.push_back(b.value(reg.toInt(nullptr, 16)));
            writes += "FF06" + reg + QString::asprintf("%04X", quint16(values.back()));
            EXPECT_EQ(withoutSeparatorToInt(b.cell(ParameterRows::Data, row)), values.back()) << row;
        }
        QStringList sent = b.frames();
        while (!sent.isEmpty() && sent.front().startsWith("FF0321")) sent.removeFirst();  // the poll in hand
        EXPECT_EQ(sent.mid(0, reads.size()), reads);
        b.passPolls(5);
        EXPECT_EQ(b.frames(PidState), QStringList());
        b.pid.WriteTransparentButtonClick();
        ASSERT_TRUE(b.idle(b.pid.line));
        EXPECT_EQ(b.frames(PidState), writes);
        b.passPolls(2);
        EXPECT_EQ(b.frames(PidState), QStringList()) << "no read-back";
        for (size_t i = 0; i < values.size(); ++i)
            EXPECT_EQ(b.value(QString::fromLatin1(family.parameters[i].modbus).toInt(nullptr, 16)),
                      values[i]);
        b.close();
        EXPECT_TRUE(b.awaitPolls(1));
        EXPECT_EQ(b.cell(ParameterRows::Modbus, 1), QString());
        EXPECT_EQ(b.cell(ParameterRows::Modbus, 0), "MODBUS");
    }
}

// What task 12 left: value, maximum, minimum, attribute, default.
ParamReadRecord recordOf(const std::array<quint16, 5>& fields) {
    ParamReadRecord read;
    read.ReadField = fields;
    read.ReadName = "PID Set Point";
    read.ReadUnit = "%";
    return read;
}

// Value, limits and default of the record with their places; signed on Tilia alone.
TEST(PidControl, ShowsRecordsWithTheirPlaces) {
    ParameterRows rows;
    rows.setCount(1);
    const ParamReadRecord read = recordOf({0xFFE7, 1000, 0xFC18, 0x0181, 0});
    rows.store(1, read, quint8(Family::Tilia), ParameterRows::Signs::ByAttribute);
    QStringList cells;
    for (int c = 1; c <= ParameterRows::Dot; ++c) cells += rows.text(ParameterRows::Column(c), 1);
    EXPECT_EQ(cells, QStringList({"PID Set Point", "%", "-2.5", "0.0", "-100.0", "100.0", "1"}));
    EXPECT_EQ(rows.word(1), "FFE7");
    rows.store(1, read, quint8(Family::Larch), ParameterRows::Signs::Never);
    EXPECT_EQ(rows.text(ParameterRows::Data, 1), "6551.1");
    for (const char* text : {"", "1.2.3", "70000", "-40000"}) {
        rows.setData(1, text);
        EXPECT_EQ(rows.word(1), std::nullopt) << text;
    }
    rows.setData(1, "-.5");
    EXPECT_EQ(rows.word(1), "FFFB");
}

TEST(PidControl, EditsAValueWithoutSendingIt) {
    PidStand b(Family::Aspen);
    b.openAndRead();
    b.frames();
    b.pid.rows.store(1, recordOf({3, 9, 0, 0, 1}), quint8(Family::Aspen), ParameterRows::Signs::Never);
    bool accept = false;
    b.person.onEdit = [&](ValueEdit& edit) {
        EXPECT_EQ(edit.PrInforVrLabel, "10-00: PID Set Point (0 ~ 9 )");
        edit.Text = "7";
        edit.InputAccepted = accept;
    };
    b.pid.ParaAdvStringGridDblClickCell(0);
    b.pid.ParaAdvStringGridDblClickCell(1);
    EXPECT_EQ(b.cell(ParameterRows::Data, 1), "3") << "cancelled";
    accept = true;
    b.pid.ParaAdvStringGridDblClickCell(1);
    EXPECT_EQ(b.cell(ParameterRows::Data, 1), "7");
    EXPECT_TRUE(b.pid.rows.ParaAdvStringGrid.edited(1));
    b.passPolls(2);
    EXPECT_EQ(b.frames(PidState), QStringList());
}

TEST(PidControl, SendsARunOfTheReadWhenItHasEnded) {
    PidStand b(Family::Larch);
    b.open();
    b.pid.RUNTransparentButtonClick();
    b.idle(b.pid.line);
    b.passPolls(4);
    EXPECT_EQ(b.frames(PidState).mid(9 - 1), QStringList({"FF0620000002"}));
    b.clock.advance(500);
    EXPECT_TRUE(b.pid.leds.RUN.on);
    b.close();
    EXPECT_EQ(b.history.last(), "PID Control was closed while the drive was running");
    EXPECT_TRUE(b.awaitPolls(3));
    EXPECT_EQ(b.frames().filter("FF06"), QStringList());
}

// Kept: after a refusal the window stands and STOP does nothing, until Read has brought it to life again. A
// RUN that was pressed meanwhile is forgotten.
TEST(PidControl, KeepsStandingAfterARefusalUntilItIsReadAnew) {
    PidStand b(Family::Tilia);
    b.openAndRead();
    b.faults().failNext(LineFault::Exception);
    b.clock.advance(3000);
    EXPECT_EQ(b.pid.line.refusalCode, 4);
    b.frames();
    b.pid.STOPTransparentButtonClick();
    b.pid.RUNTransparentButtonClick();
    b.clock.advance(5000);
    EXPECT_EQ(b.frames(), QStringList()) << "no text is fetched and nothing is polled";
    b.pid.ReadTransparentButtonClick();
    ASSERT_TRUE(b.idle(b.pid.line));
    b.passPolls(3);
    EXPECT_EQ(b.frames().filter("FF06"), QStringList());
}

// A STOP that was pressed leaves, even if the window closes before its turn or stands, or while its answer
// is awaited.
TEST(PidControl, SendsAPressedStopWhenItCloses) {
    enum class When { Waiting, Standing, OnItsWay };
    for (const When when : {When::Waiting, When::Standing, When::OnItsWay}) {
        PidStand b(Family::Aspen);
        b.openAndRead();
        if (when == When::Standing) b.faults().failNext(LineFault::Exception);
        b.clock.advance(3000);
        b.frames();
        b.pid.STOPTransparentButtonClick();
        if (when == When::OnItsWay)
            b.clock.advanceUntil([&] { return !b.transcript().filter("FF06").isEmpty(); }, 1000);
        b.close();
        b.awaitPolls(2);
        EXPECT_EQ(b.frames().filter("FF06"), QStringList(when == When::OnItsWay ? 2 : 1, "FF0620000001"));
    }
}

// Golden transcripts of each step that is refused or never answered: the window stands there. A refused read
// or write goes no further, and nothing is sent behind it.
TEST(PidControl, StandsAtTheStepThatFailed) {
    using Click = void (PidControl::*)();
    const auto stand = [](bool refused, Click click, int row) {
        PidStand b(Family::Larch);
        b.openAndRead();
        QStringList sent;
        for (int k = 1; k <= row; ++k) {
            const QString reg = b.pid.rows.registerText(k);
            const bool read = click == &PidControl::ReadTransparentButtonClick;
            sent += (read ? "FF03" : "FF06") + reg + (read ? QString("000F") : *b.pid.rows.word(k));
        }
        if (row == 0)
            sent += click == &PidControl::RUNTransparentButtonClick ? "FF0620000002" : "FF0620000001";
        b.clock.advanceUntil([&] { return b.pid.line.isFree(); }, 1000);
        b.frames();
        (b.pid.*click)();
        b.clock.advanceUntil(
            [&] { return row ? b.pid.ParamRow == row : b.pid.RunRequest == PidControl::RequestSent; }, 5000);
        b.person.onLinkFailure = [] { return LinkAnswer::Ignore; };
        b.faults().failNext(refused ? LineFault::Exception : LineFault::Silent, refused ? 1 : 5);
        b.clock.advance(200000);
        if (!refused) sent += QStringList(4, sent.back());
        EXPECT_EQ(b.frames(PidState), sent);
        EXPECT_EQ(b.pid.line.standing,
                  refused ? CommissioningLink::Standing::Refused : CommissioningLink::Standing::Lost);
    };
    for (const bool refused : {true, false}) {
        for (int row = 1; row <= 8; ++row) {
            SCOPED_TRACE(testing::Message() << "row " << row << (refused ? " refused" : " silent"));
            stand(refused, &PidControl::ReadTransparentButtonClick, row);
            stand(refused, &PidControl::WriteTransparentButtonClick, row);
        }
        stand(refused, &PidControl::RUNTransparentButtonClick, 0);
        stand(refused, &PidControl::STOPTransparentButtonClick, 0);
    }
}

// Wherever in an exchange it is pressed, while watching, reading or writing, STOP is the next frame, and goes
// once; a read or write goes on behind it.
TEST(PidControl, SendsStopBehindTheExchangeInHand) {
    using Click = void (PidControl::*)();
    for (const drive::LineMode mode : {drive::LineMode::Ascii, drive::LineMode::Rtu})
        for (const Click sweep :
             {Click{}, &PidControl::ReadTransparentButtonClick, &PidControl::WriteTransparentButtonClick}) {
            PidStand b(Family::Larch, mode);
            b.openAndRead();
            for (int ms = 0; ms < 60; ++ms) {
                b.passPolls(2);
                b.frames();
                if (sweep) (b.pid.*sweep)();
                b.clock.advance(1 + (sweep ? ms * 3 : 0));
                const qsizetype before = b.frames(PidState).size();
                b.pid.STOPTransparentButtonClick();
                b.clock.advanceUntil([&] { return !b.transcript().isEmpty(); }, 1000);
                EXPECT_EQ(b.transcript(), QStringList("FF0620000001")) << ms;
                ASSERT_TRUE(b.idle(b.pid.line));
                EXPECT_EQ(before + b.frames(PidState).size(), (sweep ? b.pid.ParamCount() : 0) + 1) << ms;
            }
        }
}

// Abort on a dead line goes to rest: nothing is sent any more, and every click says so.
TEST(PidControl, SaysOffLineWhenTheLinkWentToRest) {
    PidStand b(Family::Willow);
    b.person.onLinkFailure = [] { return LinkAnswer::Abort; };
    b.open();
    b.clock.advanceUntil([&] { return b.pid.ParamRow == 3; }, 5000);
    b.faults().setChance(LineFault::Silent, 100);
    EXPECT_TRUE(b.idle(b.pid.line));
    b.frames();
    for (const auto click :
         {&PidControl::ReadTransparentButtonClick, &PidControl::WriteTransparentButtonClick,
          &PidControl::RUNTransparentButtonClick, &PidControl::STOPTransparentButtonClick})
        (b.pid.*click)();
    EXPECT_EQ(b.person.asked.filter("Off-Line now").size(), 4);
    b.clock.advance(5000);
    EXPECT_EQ(b.frames(), QStringList());
    b.close();
}

}  // namespace
}  // namespace kelvane
