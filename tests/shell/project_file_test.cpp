#include "shell/project_file.h"

#include <gtest/gtest.h>

#include "link/number_text.h"

namespace kelvane {
namespace {

const QByteArray DefaultFile =
    "[Language]\r\nLangID=4\r\n\r\n"
    "[ComSetup Form]\r\nCom port    =4\r\nModbus Mode =ASCII\r\nBaud Rate   =9600\r\nDtatabits   =7\r\n"
    "Parity Check=N\r\nStopbits    =2\r\n\r\n"
    "[Trend Form]\r\nCh1VrPowerButton=True\r\nCh2VrPowerButton=True\r\nCh3VrPowerButton=True\r\n"
    "Ch4VrPowerButton=True\r\nCh5VrPowerButton=False\r\nCh6VrPowerButton=False\r\nCh7VrPowerButton=False\r\n"
    "Ch8VrPowerButton=False\r\n\r\n"
    "Ch1ComboBox=0\r\nCh2ComboBox=1\r\nCh3ComboBox=2\r\nCh4ComboBox=3\r\nCh5ComboBox=4\r\nCh6ComboBox=5\r\n"
    "Ch7ComboBox=6\r\nCh8ComboBox=7\r\n\r\n"
    "[Monitor Form]\r\nComboBox1=0\r\nComboBox2=1\r\nComboBox3=2\r\nComboBox4=3\r\n";

const QByteArray NamedFile =
    "[Language]\r\nLanguage = 4\r\n\r\n"
    "[Com Setup]\r\nCom port     = 4\r\nModbus Mode  = ASCII\r\nBaud Rate    = 9600\r\nDtatabits    = 7\r\n"
    "Parity Check = N\r\nStopbits     = 2\r\n\r\n"
    "[Monitor Form]\r\nMeter1stIndex = 0\r\nMeter2ndIndex = 1\r\nMeter3rdIndex = 2\r\nTrendIndex    = 3\r\n"
    "Meter1stkind  = 2\r\nMeter2ndkind  = 2\r\n\r\n"
    "[Trend Form]\r\nChannelIndex = 0,1,2,3,4,5,6,7\r\nChannelWidth = 1,1,1,1,1,1,1,1\r\n\r\n"
    "[Parameter Form]\r\n\r\n"
    "[QuickSetup Form]\r\nDrive    = Larch\r\nVersion  = 2.01\r\nkW(Hp)   = 0.75 ( 1 )\r\nRated_V  = 230V\r\n"
    "Rated_A  = 5.0A\r\n"
    "Step1    = 0|3|1|2|85.0|40.0|4\r\n"
    "Step2    = 60.00|60.00|220.0|1.50|10.0|1.50|10.0||||110|0|10.00|-10.00\r\n"
    "Step3    = 0,1,2\r\nStep4Out = 8,9,0,1,-1,-1,-1,-1\r\nStep4In  = 1,2,3,4,5,7,-1,-1\r\n\r\n";

DefaultProject defaultState() {
    DefaultProject project;
    project.ComSetup.ComPortComboBox = QStringLiteral("4");
    project.Trend.ChVrPowerButton = {true, true, true, true};
    project.Trend.ChComboBox = {0, 1, 2, 3, 4, 5, 6, 7};
    project.Monitor = {0, 1, 2, 3};
    return project;
}

NamedProject namedState() {
    NamedProject project;
    EXPECT_TRUE(readNamedProject(projectLines(NamedFile), project).ok());
    return project;
}

// A file with one text replaced.
QStringList changed(QByteArray file, const char* from, const char* to) {
    EXPECT_TRUE(file.contains(from)) << from;
    return projectLines(file.replace(from, to));
}

TEST(DefaultProjectFile, IsWrittenToTheByteAndComesBackSectionBySection) {
    EXPECT_EQ(defaultProjectBytes(defaultState()).toStdString(), DefaultFile.toStdString());
    EXPECT_EQ(parityItemIndex(QStringLiteral("N")), 0);
    EXPECT_EQ(parityItemIndex(QStringLiteral("n")), 2) << "kept: any unknown letter is the third item";
    const QStringList lines = projectLines(DefaultFile);
    DefaultProject read;
    EXPECT_EQ(readComSetupSection(lines, read.ComSetup).taken, 6);
    EXPECT_EQ(readTrendSection(lines, read.Trend).taken, 16);
    EXPECT_EQ(readMonitorSection(lines, read.Monitor).taken, 4);
    EXPECT_EQ(read, defaultState());
}

TEST(DefaultProjectFile, IsReadByPlaceInAnyOrderOfSections) {
    const QStringList lines = projectLines(
        "[Monitor Form]\nx=3\n=2\n1\nComboBox4==\n"
        "[Foreign]\nBaud Rate=1\n[ComSetup Form]\nCom port=20\nModbus Mode =A=B\nBaudrate=19200\nno "
        "sign\n\n=X\n");
    ComSetupSection com;
    EXPECT_TRUE(readComSetupSection(lines, com).ok());
    EXPECT_EQ(com.ComPortComboBox, QStringLiteral("20"));
    EXPECT_EQ(com.ModeComboBox, QStringLiteral("A=B"));
    EXPECT_EQ(com.BaudComboBox, QStringLiteral("19200"));
    EXPECT_EQ(com.DataBitsComboBox, QStringLiteral("no sign"));
    EXPECT_EQ(com.ParityComboBox, QString());
    MonitorSection monitor{7, 7, 7, 7};
    const SectionRead read = readMonitorSection(lines, monitor);
    EXPECT_EQ(read.taken, 3);
    EXPECT_EQ(read.error.toStdString(), "Line 5 cannot be read: \"=\"");
    EXPECT_EQ(monitor, (MonitorSection{3, 2, 1, 7}));
}

TEST(DefaultProjectFile, StopsAtDamageWithWhatWasReadInForce) {
    const DefaultProject state = defaultState();
    TrendSection trend;
    SectionRead read =
        readTrendSection(changed(DefaultFile, "Ch3ComboBox=2", "Ch3ComboBox=99999999999"), trend);
    EXPECT_EQ(read.taken, 10);
    EXPECT_FALSE(read.ok());
    EXPECT_EQ(trend.ChVrPowerButton, state.Trend.ChVrPowerButton);
    EXPECT_EQ(trend.ChComboBox, (std::array{0, 1, 0, 0, 0, 0, 0, 0}));

    ComSetupSection com;
    read = readComSetupSection(projectLines("[ComSetup Form]\r\nCom port    =5\r\nModbus Mode =RTU"), com);
    EXPECT_EQ(read.taken, 2);
    EXPECT_EQ(read.error.toStdString(), "Line 4 is missing.");
    EXPECT_EQ(com.ModeComboBox, QStringLiteral("RTU"));
    EXPECT_EQ(com.BaudComboBox, QStringLiteral("9600"));
}

TEST(NamedProjectFile, IsReadAndWrittenToTheByte) {
    const NamedProject project = namedState();
    EXPECT_EQ(namedProjectBytes(project).toStdString(), NamedFile.toStdString());
    EXPECT_EQ(project.Monitor, (MonitorSection{0, 1, 2, 3}));
    EXPECT_EQ(project.MeterType, 2);
    EXPECT_EQ(project.ChComboBox[7], 7);
    const QuickSetupSection& quick = project.QuickSetup;
    for (const auto& [slot, value] : {std::pair(5, 850), {8, 6000}, {15, 0}, {21, -1000}, {32, -1}, {33, 1}})
        EXPECT_EQ(quick.SlotValue[size_t(slot)], value) << slot;
    // Kept: the width of channel 1 is saved for all, the second line of the meter kind holds, the language
    // stays.
    NamedProject other = project;
    other.ChannelWidth = {3, 1, 2, 1, 1, 1, 1, 1};
    EXPECT_TRUE(namedProjectBytes(other).contains("\r\nChannelWidth = 3,3,3,3,3,3,3,3\r\n"));
    other.LanguageIndex = 9;
    readNamedProject(changed(NamedFile, "Meter2ndkind  = 2", "Meter2ndkind  = 3"), other);
    EXPECT_EQ(other.MeterType, 3);
    EXPECT_EQ(other.LanguageIndex, 9);
}

TEST(NamedProjectFile, TakesTheSeparatorOfTheMachineOutOfNumbers) {
    NamedProject withComma;
    NamedProject withPoint;
    DecimalSep = QStringLiteral(",");
    EXPECT_TRUE(readNamedProject(projectLines(QByteArray(NamedFile).replace('.', ',')), withComma).ok());
    const NamedProjectRead read = readNamedProject(projectLines(NamedFile), withPoint);
    DecimalSep = QStringLiteral(".");
    EXPECT_EQ(withComma.QuickSetup.SlotValue, namedState().QuickSetup.SlotValue);
    // A file of a machine with a point has no numbers for one with a comma.
    EXPECT_EQ(read.QuickSetup.taken, 5);
    EXPECT_EQ(read.error.toStdString(), "Line 32 cannot be read: \"0|3|1|2|85.0|40.0|4\"");
}

TEST(NamedProjectFile, KeepsFilesOfThirteenValuesInTheSecondStep) {
    NamedProject project = namedState();
    EXPECT_TRUE(readNamedProject(changed(NamedFile, "|0|10.00|-10.00", "|0|10.00"), project).ok());
    EXPECT_EQ(project.QuickSetup.SlotFileValue[20], QStringLiteral("10.00"));
    EXPECT_EQ(project.QuickSetup.SlotFileValue[21], QString());
    EXPECT_EQ(project.QuickSetup.SlotValue[21], 0);
    // With fewer still, the values that are missing stay as they were.
    project = namedState();
    EXPECT_TRUE(readNamedProject(changed(NamedFile, "|0|10.00|-10.00", ""), project).ok());
    EXPECT_EQ(project.QuickSetup.SlotFileValue[21], QStringLiteral("-10.00"));
}

TEST(NamedProjectFile, KeepsFixedKeyWidthsAndComparesNoKey) {
    const QStringList lines = projectLines(
        "[Monitor Form]\n0123456789012345-1\n1234567890123456 4\nxxxxxxxxxxxxxxxx5\nxxxxxxxxxxxxxxxx6\n"
        "xxxxxxxxxxxxxxxx1\nxxxxxxxxxxxxxxxx2\n"
        "[Com Setup]\n0123456789012347\nModbus Mode =RTU\n01234567890123419200\nxxxxxxxxxxxxxxx8\n\n"
        "xxxxxxxxxxxxxxx1\n");
    NamedProject project;
    const NamedProjectRead read = readNamedProject(lines, project);
    EXPECT_TRUE(read.ok());
    EXPECT_EQ(project.Monitor, (MonitorSection{-1, 4, 5, 6}));
    EXPECT_EQ(project.ComSetup.ComPortComboBox, QStringLiteral("7"));
    EXPECT_EQ(project.ComSetup.ModeComboBox, QStringLiteral("U"));
    EXPECT_EQ(project.ComSetup.BaudComboBox, QStringLiteral("19200"));
    EXPECT_EQ(project.ComSetup.ParityComboBox, QString());
    EXPECT_TRUE(!read.Trend.found && !read.QuickSetup.found);
}

TEST(NamedProjectFile, StopsAtDamageInTheOrderOfItsReader) {
    const struct {
        const char* from;
        const char* to;
        const char* error;
        bool inComSetup = false;
    } damages[] = {
        {"Meter3rdIndex = 2", "Meter3rdIndex = two", "Line 15 cannot be read: \"two\""},
        {"0,1,2,3,4,5,6,7", "0,1,2,3", "Line 21 has too few values."},
        {"1,1,1,1,1,1,1,1", "1,1,,1,1,1,1,1", "Line 22 cannot be read: \"1,1,,1,1,1,1,1\""},
        {"0|3|1|2|85.0|40.0|4", "", "Line 32 has too few values."},
        {"Step4In  = 1,2,3,4,5,7,-1,-1\r\n\r\n", "", "Line 36 is missing."},
        {"Com port     = 4", "Com port     = four", "Line 5 cannot be read: \"four\"", true},
        {"Baud Rate    = ", "Baud Rate    = x", "Line 7 cannot be read: \"x9600\"", true},
        {"Stopbits     = ", "Stopbits     = two ", "Line 10 cannot be read: \"two 2\"", true},
    };
    for (const auto& damage : damages) {
        NamedProject project;
        const NamedProjectRead read = readNamedProject(changed(NamedFile, damage.from, damage.to), project);
        EXPECT_EQ(read.error.toStdString(), damage.error);
        EXPECT_EQ(read.Monitor.found, !damage.inComSetup);
    }
    // Values before the damage are in force; the sections that follow are not reached.
    NamedProject project;
    readNamedProject(changed(NamedFile, "1|2|85.0", "1|2|8a.0"), project);
    EXPECT_EQ(project.QuickSetup.SlotValue[2], 3);
    EXPECT_EQ(project.QuickSetup.SlotFileValue[5], QString());
    project = {};
    const NamedProjectRead read =
        readNamedProject(changed(NamedFile, "TrendIndex    = 3", "TrendIndex    = "), project);
    EXPECT_TRUE(read.ComSetup.ok() && read.Monitor.taken == 3 && !read.Trend.found && !read.QuickSetup.found);
    EXPECT_EQ(project.Monitor, (MonitorSection{0, 1, 2, 0}));
}

TEST(ProjectLines, EndAtAnyLineEnd) {
    EXPECT_EQ(projectLines("a\r\nb\nc\rd"), (QStringList{"a", "b", "c", "d"}));
    EXPECT_EQ(projectLines("\r\n\r\n").size(), 2);
}

}  // namespace
}  // namespace kelvane
