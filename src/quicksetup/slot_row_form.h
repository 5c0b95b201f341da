// One slot on a page of the wizard: label, control, unit and the mark of a changed value. Shows the slot and
// passes the person's hand on to it.
#pragma once

#include <QObject>

#include "quicksetup/quick_setup.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QWidget;

namespace kelvane {

class NumberEdit;

class SlotRowForm : public QObject {
    Q_OBJECT
   public:
    // Adds its widgets to the next row of grid on page.
    SlotRowForm(QuickSetup& quick, int slot, QWidget* page, QGridLayout& grid);

    QWidget* control() const;
    int slot() const { return m_slot; }
    void showList();   // family, label, items, unit, whether it is there at all
    void showValue();  // value and marks
    void showMarks();

   Q_SIGNALS:
    void left(int slot);  // the edit; its text has not been looked at

   private:
    void makeBox(QWidget* page);
    void makeEdit(QWidget* page);
    QString hint() const;

    QuickSetup& m_quick;
    const int m_slot;
    QLabel* m_label = nullptr;
    QComboBox* m_box = nullptr;
    NumberEdit* m_edit = nullptr;
    QLabel* m_unit = nullptr;
    QLabel* m_mark = nullptr;
};

}  // namespace kelvane
