#include "diagnostics/keypad/keypad.h"

#include <gtest/gtest.h>

#include "diagnostics/keypad/keypad_bench.h"

namespace kelvane {
namespace {

constexpr KeypadSheet Main = KeypadSheet::Main;
constexpr KeypadSheet Error = KeypadSheet::ErrInfo;

// ---- Pages ----

TEST(KeypadPages, FollowTheModeKeyRound) {
    KeypadBench b;
    b.status.RatedWords = {1234, 0x0241, 0};
    const char* pages[] = {"Reference Frequency//60.00/STOP FWD F", "Output Frequency//59.98/STOP FWD H",
                           "User Define/A/12.34/STOP FWD U", "Output Current/A/12.3/STOP FWD"};
    for (int round = 0; round < 2; ++round) {
        for (const char* page : pages) {
            b.tick();
            EXPECT_EQ(b.screen.sheet, Main);
            const QStringList shown{b.screen.HeadInfoLabel, b.screen.LeadChVrLabel, b.screen.displayVrLabel,
                                    b.leds()};
            EXPECT_EQ(shown.join('/').toStdString(), page);
            EXPECT_TRUE(b.screen.displayVisible && !b.screen.summaryVisible);
            b.keypad.ModeTransparentButtonClick();
            EXPECT_EQ(b.taken(), b.keypad.KeypadPage == 2 ? "7 FF0321160003" : "") << page;
        }
        b.tick();
        EXPECT_TRUE(b.screen.summaryVisible && !b.screen.displayVisible);
        EXPECT_EQ(b.screen.FVrLabel + " " + b.screen.HVrLabel + " " + b.screen.AVrLabel, "60.00 59.98 12.3");
        EXPECT_EQ(b.leds(), "STOP FWD");
        b.keypad.ModeTransparentButtonClick();
    }
    EXPECT_EQ(b.screen.FreqScrollBarMax, 6000);
    EXPECT_EQ(b.screen.FreqScrollBarPosition, 6000);
}

TEST(KeypadPages, ComeBackFromTheParametersToWhereTheyWereLeft) {
    KeypadBench b;
    for (int page = 0; page < 5; ++page) {
        EXPECT_EQ(b.keypad.KeypadPage, page);
        b.keypad.PROGTransparentButtonClick();
        EXPECT_EQ(b.keypad.KeypadPage, page == 0 ? 4 : page - 1);
        EXPECT_EQ(b.screen.sheet, KeypadSheet::ParaInfo);
        b.tick();
        EXPECT_EQ(b.screen.sheet, KeypadSheet::ParaInfo);
        EXPECT_EQ(b.leds(), "STOP FWD");
        b.keypad.ModeTransparentButtonClick();
        EXPECT_EQ(b.keypad.KeypadPage, page);
        b.keypad.ModeTransparentButtonClick();
    }
    b.taken();
}

TEST(KeypadPages, AskForTheUserDisplayBehindEachPollAlsoWhileTheWindowIsClosed) {
    for (const Family family : {Family::Tilia, Family::Hazel}) {
        KeypadBench b(family);
        const QString read = family == Family::Hazel ? "7 FF03210B0002" : "7 FF0321160003";
        b.poll();
        EXPECT_EQ(b.taken(), "");
        b.keypad.ModeTransparentButtonClick();
        b.keypad.ModeTransparentButtonClick();
        EXPECT_EQ(b.taken(), read);
        b.poll();
        EXPECT_EQ(b.taken(), read);
        b.tick(30);
        EXPECT_EQ(b.taken(), "");
    }
}

// ---- Lamps ----

TEST(KeypadLeds, ShowTheStateWord) {
    for (const auto& [word, leds] : {std::pair{0x0003u, "RUN FWD F"},
                                     {0x001Bu, "RUN REV F"},
                                     {0x0004u, "STOP JOG FWD F"},
                                     {0x0400u, "STOP FWD PU F"},
                                     {0x0200u, "STOP FWD EXT F"},
                                     {0x0018u, "STOP REV F"}}) {
        KeypadBench b;
        b.setState(word);
        b.tick();
        EXPECT_EQ(b.leds().toStdString() + b.blinking().toStdString(), leds);
    }
}

// Only the flash timer colours a lamp that blinks: it keeps its colour for 300 ms, then changes it.
TEST(KeypadLeds, BlinkEvery300Milliseconds) {
    KeypadBench b;
    for (const auto& [word, name] : {std::pair{0x1u, "RUN"}, {0x2u, "STOP"}, {0x8u, "REV"}, {0x10u, "FWD"}}) {
        b.setState(word);
        b.tick();
        EXPECT_EQ(b.blinking(), name);
        int changes = 0;
        for (int ms = 0; ms < 3000; ++ms) {
            const QString before = b.leds();
            b.link.rest();
            b.clock.advance(1);
            changes += b.leds() != before;
        }
        EXPECT_EQ(changes, 10) << name;
        b.setState(0);
        b.tick();
        EXPECT_EQ(b.blinking(), "");
        EXPECT_FALSE(b.keypad.FlashTimer.Enabled());
    }
    b.taken();
}

// The underline goes out for one tick in fifty.
TEST(KeypadLeds, AnExternalFrequencyHidesSliderAndEdit) {
    KeypadBench b;
    const auto shown = [&]() -> QString {
        return QString::number(b.screen.FreqScrollBarVisible) +
               QString::number(b.screen.underLineVrLabelVisible) + QString::number(b.screen.InputEditVisible);
    };
    for (const auto& [word, wanted] : {std::pair{0u, "111"}, {0x0200u, "000"}, {0u, "111"}}) {
        b.setState(word);
        b.tick();
        EXPECT_EQ(shown(), wanted);
    }
    b.keypad.ModeTransparentButtonClick();
    b.tick();
    EXPECT_EQ(shown(), "000") << "only page F has them";
    KeypadBench frequency;
    frequency.setState(0x0100);
    int off = 0;
    for (int i = 0; i < 500; ++i) {
        frequency.tick();
        off += !frequency.screen.underLineVrLabelVisible;
    }
    EXPECT_EQ(off, 10);
}

// ---- Frequency ----

TEST(KeypadFrequency, IsSentWhenItIsLegal) {
    const char* illegal = "Value is not Legal !! Please check it ...";
    const char* small = "Value is too small !! Please check it ...";
    const char* large = "Value is too large !! Please check it ...";
    const std::pair<const char*, const char*> rows[] = {// what is typed; what is sent, or the box
                                                        {"50.005", "10 FF0620011388"},
                                                        {"60", "10 FF0620011770"},
                                                        {"0", "10 FF0620010000"},
                                                        {".5", "10 FF0620010032"},
                                                        {"", illegal},
                                                        {"5-5", illegal},
                                                        {"1.2.3", illegal},
                                                        {"15,5", illegal},
                                                        {"99999999999", illegal},
                                                        {"-0.01", small},
                                                        {"60.01", large}};
    for (const auto& [typed, wanted] : rows) {
        KeypadBench b;
        b.keypad.screen.InputEdit = typed;
        const bool sent = wanted[0] == '1';
        if (!sent) b.person.expectBox(wanted, "Error Message");
        b.keypad.InputEditEnter();
        EXPECT_EQ(b.taken(), sent ? wanted : "") << typed;
        EXPECT_EQ(b.screen.InputEdit, sent ? typed : "60.00");
        EXPECT_EQ(b.keypad.GetDataTimer.Enabled(), !sent) << "an older status would overwrite it";
    }
    KeypadBench b;
    b.status.MaxFreqWord = 0;  // kept: then everything is too large
    b.tick();
    b.keypad.screen.InputEdit = "10";
    b.person.expectBox(large, "Error Message");
    b.keypad.InputEditEnter();
    EXPECT_EQ(b.taken(), "");
}

TEST(KeypadFrequency, OfTheSliderIsSentOnceItRests) {
    KeypadBench b;
    b.tick(10);
    for (const int position : {1000, 2000, 3050}) {
        b.keypad.FreqScrollBarScroll(position);
        b.tick(19);
        EXPECT_EQ(b.taken(), "") << position;
    }
    EXPECT_EQ(b.screen.displayVrLabel, "30.50");
    EXPECT_EQ(b.screen.InputEdit, "30.50");
    b.setStatus({5, 3, 100});
    b.tick();
    EXPECT_EQ(b.taken(), "10 FF0620010BEA");
    EXPECT_EQ(b.screen.FreqScrollBarPosition, 3050);
    EXPECT_EQ(b.screen.sheet, Main) << "faults stand still meanwhile";
    b.poll();
    b.tick(30);
    EXPECT_EQ(b.taken(), "") << "not before the drive has answered";
    b.status.KeypadDataDue = 1;
    b.poll();
    b.tick();
    EXPECT_EQ(b.screen.FreqScrollBarPosition, 100);
    EXPECT_EQ(b.taken(), "14 FF033205000A");
}

TEST(KeypadFrequency, IsForgottenWhenTheLineGoesToAnotherOwner) {
    using Leaving = std::function<void(KeypadBench&)>;
    for (const auto& leave : {Leaving([](KeypadBench& b) {
                                  b.link.prelude();
                                  b.link.tail();
                              }),
                              Leaving([](KeypadBench& b) {
                                  b.link.Initial();
                                  b.identify(Family::Larch, {5, 3});
                              }),
                              Leaving([](KeypadBench& b) {
                                  b.keypad.rest();
                                  b.poll();
                              })}) {
        KeypadBench b;
        b.keypad.FreqScrollBarScroll(3000);
        leave(b);
        b.taken();
        b.tick(60);
        EXPECT_FALSE(b.taken().contains("FF062001"));
        EXPECT_EQ(b.screen.FreqScrollBarPosition, 6000);
    }
}

// ---- Parameters ----

TEST(KeypadParameters, ShowTheRecordOfTheChosenOne) {
    struct Row {
        Family family;
        std::array<quint16, 5> words;
        const char* shown;  // value, limits, default, lock
    };
    const Row rows[] = {{Family::Larch, {6000, 40000, 5000, 0x0200, 6000}, "60.00 50.00 400.00 60.00 0"},
                        {Family::Larch, {3, 9, 0, 0x0008, 1}, "3 0 9 1 1"},
                        {Family::Tilia, {0xFFFB, 1000, 0xFC18, 0x0180, 0}, "-.5 -100.0 100.0 0.0 0"},
                        {Family::Hazel, {6000, 40000, 5000, 0x0200, 0}, "60.00 50.00 400.00 -- 0"}};
    for (const Row& row : rows) {
        KeypadBench b(row.family);
        b.keypad.SelPrComboBoxChange(6);
        ASSERT_FALSE(b.link.CommandQueue.empty());
        EXPECT_EQ(b.link.CommandQueue.back(), row.family == Family::Hazel ? "FF0301000004" : "FF030100000F");
        b.record(row.words, "Max. Output Freq", "Hz  ");
        EXPECT_EQ(b.screen.PrNumVrLabel + b.screen.PrNameLabel + b.screen.UnitVrLabel,
                  "01-00Max. Output FreqHz  ");
        const QStringList shown{b.screen.DataVrLabel, b.screen.MinLabel, b.screen.MaxLabel, b.screen.DefLabel,
                                QString::number(b.screen.LockImageVisible)};
        EXPECT_EQ(shown.join(' ').toStdString(), row.shown);
        EXPECT_EQ(b.link.ParamRead.ReadDone, 0) << "taken";
    }
}

struct ParameterBench : KeypadBench {
    ParameterBench() {
        keypad.PROGTransparentButtonClick();
        choose(6, {6000, 40000, 5000, 0x0200, 6000});
    }
    void choose(int entry, std::array<quint16, 5> words) {
        keypad.SelPrComboBoxChange(entry);
        record(words, "Max. Output Freq", "Hz  ");
    }
    void expectEdit(const QString& text, bool accepted = true) {
        person.expectEdit([text, accepted](ValueEdit& edit) {
            EXPECT_EQ(edit.PrInforVrLabel, "01-00: Max. Output Freq (50.00 - 400.00 )");
            EXPECT_EQ(edit.InputOldText, "60.00");
            edit.Text = text;
            edit.InputAccepted = accepted;
        });
    }
    void expectQuestion(BoxAnswer answer, std::function<void()> meanwhile = {}) {
        person.expectBox("Do you want to write the parameter to drive ?", "Cofirm", answer,
                         std::move(meanwhile));
    }
};

TEST(KeypadParameters, AreWrittenAfterAQuestionAndReadBack) {
    ParameterBench b;
    b.expectEdit("55.00");
    b.expectQuestion(BoxAnswer::Ok);
    b.keypad.DataVrLabelDblClick();
    EXPECT_EQ(b.person.lastButtons, BoxButtons::OkCancel);
    EXPECT_EQ(b.taken(), "13 FF060100157C, 12 FF030100000F");

    b.expectEdit("55.00");
    b.expectQuestion(BoxAnswer::Cancel);
    b.choose(6, {6000, 40000, 5000, 0x0200, 6000});
    b.keypad.DataVrLabelDblClick();
    b.expectEdit("55.00", false);
    b.keypad.DataVrLabelDblClick();
    EXPECT_EQ(b.taken(), "");
    b.choose(6, {6000, 40000, 5000, 0x0208, 6000});
    b.person.expectBox("Parameter can not be set !!", "Warning Message");
    b.keypad.DataVrLabelDblClick();
    EXPECT_EQ(b.person.lastIcon, BoxIcon::Exclamation);
}

// Limits, places and address must belong together, and to the drive that is there when OK is pressed.
TEST(KeypadParameters, AreWrittenOnlyWithTheirOwnRecordAndToTheirOwnDrive) {
    ParameterBench waiting;
    waiting.keypad.SelPrComboBoxChange(7);
    waiting.keypad.DataVrLabelDblClick();
    Q_EMIT waiting.link.refused(12, 2);
    waiting.keypad.DataVrLabelDblClick();
    EXPECT_EQ(waiting.screen.DataVrLabel, "");
    EXPECT_FALSE(waiting.taken().contains("FF06"));

    using Meanwhile = std::function<void(KeypadBench&)>;
    for (const auto& meanwhile :
         {Meanwhile([](KeypadBench& b) { b.link.Initial(); }), Meanwhile([](KeypadBench& b) {
              b.link.Initial();
              b.identify(Family::Tilia, {5, 3});
              b.tick();
          })}) {
        ParameterBench b;
        b.expectEdit("55.00");
        b.expectQuestion(BoxAnswer::Ok, [&] { meanwhile(b); });
        b.keypad.DataVrLabelDblClick();
        EXPECT_FALSE(b.taken().contains("FF06"));
    }
}

TEST(KeypadParameters, AreListedAnewForAnotherDrive) {
    KeypadBench b;
    EXPECT_EQ(b.screen.SelPrComboBox.size(), 6 + 4);
    b.keypad.SelPrComboBoxChange(7);
    b.link.Initial();
    b.identify(Family::Larch, {5, 3});
    b.tick();
    EXPECT_EQ(b.screen.SelPrComboBoxItemIndex, 7) << "the same drive";
    b.taken();
    b.link.Initial();
    b.identify(Family::Rowan, {9});
    b.tick();
    EXPECT_EQ(b.screen.SelPrComboBox.size(), 10);
    EXPECT_EQ(b.screen.SelPrComboBoxItemIndex, 0);
    EXPECT_EQ(b.taken(), "12 FF030000000F");
    b.taken();
}

// ReadDone is shared: what another window read is not taken for the parameter on show.
TEST(KeypadParameters, TakeNobodyElsesRecord) {
    KeypadBench b;
    b.keypad.SelPrComboBoxChange(7);
    b.taken();
    b.link.ParamRead.ReadField = {1, 2, 3, 4, 5};
    b.link.push(12, "FF030203000F");
    b.answer(12);
    b.tick();
    EXPECT_EQ(b.link.ParamRead.ReadDone, 1);
    EXPECT_EQ(b.screen.DataVrLabel, "");
    b.keypad.PROGTransparentButtonClick();
    b.link.prelude();
    b.link.tail();
    b.keypad.PROGTransparentButtonClick();
    EXPECT_EQ(b.taken(), "12 FF030101000F") << "asked again after another window had the line";
}

// ---- Faults and failures ----

TEST(KeypadFaults, KeepGoingToTheMainPageWhenTheyEnd) {
    KeypadBench b;
    b.keypad.PROGTransparentButtonClick();
    b.setStatus({5});
    b.tick();
    EXPECT_EQ(b.screen.sheet, KeypadSheet::ParaInfo) << "the text is not in";
    b.status.FaultTextValid = 1;
    b.tick();
    EXPECT_EQ(b.screen.sheet, Error);
    b.setStatus({0});
    b.tick();
    EXPECT_EQ(b.screen.sheet, Main) << "kept: not the parameters";
    b.taken();
}

TEST(KeypadFaults, OfTwoFamiliesAreNamedByATable) {
    for (const auto& [family, code, name] : {std::tuple{Family::Aspen, 5u, "oL1"},
                                             {Family::Aspen, 200u, ""},
                                             {Family::Hazel, 4u, "oL"},
                                             {Family::Hazel, 255u, ""},
                                             {Family::Larch, 5u, "own "}}) {
        KeypadBench b(family);
        b.status.FaultName = "own ";
        b.setStatus({code});
        b.status.FaultTextValid = family != Family::Hazel;
        b.tick();
        EXPECT_EQ(b.screen.sheet, Error);
        EXPECT_EQ(b.screen.ErrNameVrLabel, name) << int(family) << " " << code;
        EXPECT_EQ(b.status.FaultTextValid, family != Family::Hazel) << "changed in the copy only";
        EXPECT_EQ(b.taken(), "");
    }
}

TEST(KeypadFaults, ATimeOutShowsUntilTheNextStatus) {
    KeypadBench b;
    Q_EMIT b.link.timedOut();
    b.tick(10);
    EXPECT_EQ(b.screen.sheet, Error);
    EXPECT_EQ(b.screen.ErrNameVrLabel + "/" + b.screen.ErrDescriptLabel, "CE 10/Time Out");
    b.poll();
    b.tick();
    EXPECT_EQ(b.screen.sheet, Main);
    Q_EMIT b.link.badCheck();
    EXPECT_FALSE(b.keypad.GetDataTimer.Enabled());
}

// The link forgets a refusal with the next good reply: a person would never read why.
TEST(KeypadFaults, ARefusedCommandTellsWhyForAWhile) {
    KeypadBench b;
    Q_EMIT b.link.refused(7, 2);
    b.link.push(15, "FF0333020008");
    b.status.ExceptionText = "Illegal address ";
    b.answer(15);
    b.tick();
    EXPECT_EQ(b.screen.sheet, Main) << "nobody asked for that";
    Q_EMIT b.link.refused(2, 3);
    b.link.push(15, "FF0333030008");
    b.status.ExceptionText = "Value not legal ";
    b.answer(15);
    b.tick();
    EXPECT_EQ(b.screen.sheet, Error);
    EXPECT_EQ(b.screen.ErrDescriptLabel, "Value not legal ");
    b.tick(300);
    EXPECT_EQ(b.screen.sheet, Main);
    b.status.ExceptionPending = 1;
    b.tick();
    EXPECT_EQ(b.screen.sheet, Error);
    b.taken();
}

// ---- Keys ----

TEST(KeypadKeys, SendWhatTheFamilyHasForThem) {
    for (const auto& [family, arrow] : {std::pair{Family::Rowan, "8 FF0620050001"},
                                        {Family::Aspen, ""},
                                        {Family::Larch, "8 FF0620050006"},
                                        {Family::Hazel, ""},
                                        {Family::Willow, ""},
                                        {Family::Sorrel, "8 FF0620050006"}}) {
        KeypadBench b(family);
        b.keypad.LeftArrowTransparentButtonClick();
        EXPECT_EQ(b.taken().toStdString(), arrow) << familyName(family);
    }
    KeypadBench b;
    b.keypad.PUTransparentButtonClick();
    EXPECT_EQ(b.taken(), "");
}

TEST(KeypadKeys, JogAsLongAsItIsHeld) {
    KeypadBench b;
    b.keypad.JOGTransparentButtonMouseDown();
    b.keypad.JOGTransparentButtonMouseDown();
    EXPECT_EQ(b.taken(), "6 FF0620000003");
    b.setState(4);
    b.tick();
    b.keypad.JOGTransparentButtonMouseUp();
    b.keypad.JOGTransparentButtonMouseUp();
    EXPECT_EQ(b.taken(), "3 FF0620000001");
    b.setState(0);
    b.keypad.JOGTransparentButtonMouseDown();
    b.taken();
    b.keypad.JOGTransparentButtonMouseUp();
    EXPECT_EQ(b.taken(), "") << "kept: the drive was not seen to jog";
    b.keypad.JOGTransparentButtonMouseDown();
    b.link.TimeoutCount = 1;
    b.keypad.JOGTransparentButtonMouseUp();
    EXPECT_EQ(b.taken(), "3 FF0620000001") << "a silent line cannot be seen: the jog is taken back";
}

TEST(KeypadKeys, DoNothingWhileTheyAreHiddenOrTheLineIsAnothers) {
    KeypadBench b;
    const auto pressAll = [&] {
        b.keypad.RUNTransparentButtonClick();
        b.keypad.STOPTransparentButtonClick();
        b.keypad.DIRTransparentButtonClick();
        b.keypad.JOGTransparentButtonMouseDown();
        b.keypad.JOGTransparentButtonMouseUp();
        b.keypad.LeftArrowTransparentButtonClick();
        b.keypad.FreqScrollBarScroll(100);
        b.keypad.screen.InputEdit = "10";
        b.keypad.InputEditEnter();
        b.keypad.DataVrLabelDblClick();
    };
    b.link.ActiveFunction = OwnerParameter;
    pressAll();
    b.link.ActiveFunction = OwnerMain;
    b.link.Initial();
    b.link.emptyQueues();
    pressAll();
    EXPECT_EQ(b.taken(), "");
}

// ---- Off line and identification ----

TEST(KeypadLifecycle, ShowsTheStartPageUntilTheDriveIsKnown) {
    KeypadBench b;
    b.setState(0x0701);
    b.tick();
    b.link.Initial();
    EXPECT_EQ(b.screen.sheet, KeypadSheet::StartUp);
    EXPECT_TRUE(b.screen.OnLineTransparentButtonVisible && !b.screen.InitialVrLabelVisible);
    EXPECT_FALSE(b.screen.keysVisible || b.screen.FreqScrollBarVisible || b.screen.InputEditVisible);
    b.clock.advance(2000);
    EXPECT_EQ(b.leds(), "");
    b.keypad.showIdentification();
    EXPECT_TRUE(!b.screen.OnLineTransparentButtonVisible && b.screen.InitialVrLabelVisible);
    b.link.setLamp(LampState::OnLine);
    Q_EMIT b.link.wentOnLine();
    QStringList positions;
    for (int i = 0; i < 12; ++i) {
        positions += QString::number(b.screen.InitialVrIndicatorPosition);
        b.clock.advance(50);
    }
    EXPECT_EQ(positions.join(' '), "0 10 20 30 40 50 60 70 80 90 100 0");
    b.identify(Family::Larch, {5, 3});
    EXPECT_TRUE(b.screen.keysVisible);
    EXPECT_EQ(b.keypad.KeypadPage, 0);
    b.taken();
}

TEST(KeypadLifecycle, AsksForTheMaximumFrequencyEveryHundredTicks) {
    KeypadBench b;
    int asked = 0;
    for (int i = 0; i < 1000; ++i) {
        b.tick();
        if (b.taken() == "9 FF03211B0001") ++asked;
    }
    EXPECT_EQ(asked, 10);
    KeypadBench hazel(Family::Hazel);
    hazel.tick(100);
    EXPECT_EQ(hazel.taken(), "9 FF0301000001");
}

TEST(KeypadLifecycle, RestsWhileOthersHaveTheLine) {
    KeypadBench b;
    for (const quint8 owner : {OwnerParameter, OwnerAutoTuning, OwnerPid}) {
        b.keypad.rest();
        b.link.ActiveFunction = owner;
        b.poll();
        EXPECT_FALSE(b.keypad.GetDataTimer.Enabled()) << int(owner);
        b.link.tail();
        EXPECT_TRUE(b.keypad.GetDataTimer.Enabled());
        b.taken();
    }
    for (const quint8 owner : {OwnerTrend, OwnerMonitor}) {
        b.keypad.rest();
        b.link.ActiveFunction = owner;
        b.poll();
        EXPECT_TRUE(b.keypad.GetDataTimer.Enabled()) << int(owner);
    }
}

TEST(KeypadLifecycle, TellsOnlyWhatChanged) {
    KeypadBench b;
    b.setState(0x0700);
    b.tick();
    int changes = 0;
    QObject::connect(&b.keypad, &Keypad::changed, [&] { ++changes; });
    b.keypad.ModeTransparentButtonClick();
    b.tick(1000);
    EXPECT_EQ(changes, 2) << "the key and its first refresh";
    b.taken();
}

}  // namespace
}  // namespace kelvane
