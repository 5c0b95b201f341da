// TQuickSetupForm, the wizard: four steps of slots, the V/f curve and the terminals beside them. It shows the
// slots' values and passes the person's hand on; what is read and written is the flow's.
#pragma once

#include <QDialog>
#include <array>

#include "quicksetup/quick_setup_flow.h"
#include "quicksetup/slot_row_form.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTabWidget;

namespace kelvane {

class Drawing;

class TQuickSetupForm : public QDialog {
    Q_OBJECT
   public:
    TQuickSetupForm(QuickSetup& quick, QuickSetupFlow& flow, QWidget* parent = nullptr);

    // Chinese captions in the picture of the V/f curve.
    void setChinese(bool chinese);
    // Where the values come from, below the steps.
    void setSourceText(const QString& text);

   public Q_SLOTS:
    void done(int result) override;

   protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

   private:
    // Layout.
    void nameTabs();  // which no language file has
    void tintHelps();
    QWidget* makePage(const char* name, const char* headingName, const QString& heading, QWidget* content);
    QWidget* makeStepOne();
    QWidget* makeStepTwo();
    QWidget* makeStepThree();
    QWidget* makeStepFour();
    QWidget* makeTerminalPage(const char* name, SlotRange range);
    QWidget* makeTerminals();
    QWidget* makeCurves();
    QWidget* makeFoot();
    QLabel* addHelp(const char* name, const QString& text, QGridLayout& grid, int shownWithSlot = 0);
    void addSlots(SlotRange range, QWidget* page, QGridLayout& grid);

    // Showing.
    void showFamily();
    void showValues();
    void showCurve();
    void placeTerminalNames();
    void showChangedCount();

    // Steps.
    void goToStep(int step);
    void enableStepButtons();
    void BackStepBitBtnClick();
    void NextStepBitBtnClick();
    void OKBitBtnClick();
    void FormClose();

    // The hand.
    SlotRowForm& row(int slot) { return *m_rows[static_cast<size_t>(slot)]; }
    bool leave(int slot);
    bool leaveFocused();
    void walk(int slot, int by);
    void focusSlot(int slot);
    int slotOf(const QObject* control) const;

    QuickSetup& m_quick;
    QuickSetupFlow& m_flow;
    std::array<SlotRowForm*, SlotCount + 1> m_rows{};
    struct Help {
        QLabel* label;
        int slot;  // hidden where the family has it not
    };
    std::vector<Help> m_helps;
    std::array<QLabel*, 7> m_terminalNames{};
    QTabWidget* PageControl1 = nullptr;
    QTabWidget* PageControl2 = nullptr;
    QStackedWidget* PageControl3 = nullptr;
    Drawing* m_terminals = nullptr;
    QLabel* m_source = nullptr;
    QLabel* m_changed = nullptr;
    QPushButton* BackStepBitBtn = nullptr;
    QPushButton* NextStepBitBtn = nullptr;
    QPushButton* OKBitBtn = nullptr;
    bool m_chinese = false;
    bool m_closing = false;
    bool m_refused = false;  // in this turn of the event loop: the click that left the edit does nothing more
};

}  // namespace kelvane
