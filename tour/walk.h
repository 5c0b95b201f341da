// The walk itself: a commissioning session from the first start to the exit, step by step, with the practice
// drive of one family. Every step looks at what the windows show or at what the drive holds, and fails if
// that is not right.
#pragma once

#include "tour/hand.h"
#include "tour/stage.h"

namespace kelvane::tour {

class Walk {
   public:
    // Saved files go to fileFolder, which exists.
    Walk(Stage& stage, Script& script, Answers& answers, Family family, const QString& fileFolder);
    void run();

   private:
    // Main window.
    void start();
    void choosePracticeDrive();
    void testWithWrongSettings();
    void autoDetect();
    void goOnLine();
    void lookAtIdentity();
    void changeLanguage();
    void saveProject();
    void exit();

    // Parameter Management.
    void openParameters();
    void readDrive();
    void pickGroup();
    void findInTable();
    void editValue();
    void undoAndRedo();
    void writeSelect();
    void writeWhileRunning();
    void compareWithDefaults();
    void saveAndRead(const QString& format, const char* lamp, const QString& suffix);
    void compareWithFile();
    void hideColumn();
    void print();
    void closeTab();
    void closeParameters();

    // Trend.
    void recordTrend();
    void saveTrend();

    // Monitor, PID control, auto tuning.
    void watchMeters();
    void controlByPid();
    void tuneMotor();

    void check(bool right, const QString& wrong);
    void edit(int row, const QString& picture = {});
    void chooseTable(const char* button, const QString& picture = {});
    void compare(const QString& kind, const QString& picture);
    int editableRow(bool whileRunning) const;
    QString otherValue(int row) const;
    bool driveHolds(int row) const;
    StringGridView& driveView();
    QString file(const QString& name) const;

    Stage& m_stage;
    Script& m_script;
    Answers& m_answers;
    Hand m_hand;
    Windows& m_windows;
    TMainForm& m_main;
    TParameterForm& m_parameters;
    StringGrid& m_table;  // Table from Drive
    drive::PracticeDrive& m_drive;
    Family m_family;
    QString m_fileFolder;
};

}  // namespace kelvane::tour
