// The Parameter window's session with its real dialogs, a practice drive at the other end of the line, and a
// person who answers boxes from a script and edits values in the real editor.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QTest>
#include <stdexcept>

#include "bench/scripted_operator.h"
#include "parameters/dialogs/input_value_form.h"
#include "parameters/dialogs/progress_form.h"
#include "parameters/dialogs/write_check_err_record_form.h"
#include "parameters/dialogs/write_check_form.h"
#include "parameters/station_bench.h"
#include "parameters/table/table_edit.h"
#include "ui/string_grid_view.h"

namespace kelvane {

template <typename T = QWidget>
T& part(const QWidget& form, const char* name) {
    T* found = form.findChild<T*>(QLatin1String(name));
    if (!found) throw std::runtime_error(name);
    return *found;
}

// The dialogs show in the next turn of the event loop what changed.
inline QString textOf(const QWidget& form, const char* name) {
    QCoreApplication::sendPostedEvents();
    return part<QLabel>(form, name).text();
}

inline void press(const QWidget& form, const char* name) {
    QTest::mouseClick(&part<QAbstractButton>(form, name), Qt::LeftButton);
}

struct DialogPerson {
    LangTable words = LangTable::builtInEnglish();
    ScriptedOperator person;
    TInputValueForm editor{person, words};

    // What the hand does when the editor comes.
    void expectEditor(const std::function<void(TInputValueForm&)>& hand) {
        person.expectEdit([this, hand](ValueEdit& edit) {
            editor.prepare(edit)->show();
            hand(editor);
            if (editor.isVisible()) editor.close();
        });
    }
};

struct DialogBench : DialogPerson, StationBench {
    TProgressForm progress{session.progress};
    TWriteCheckForm writeCheck{session};
    TWriteCheckErrRecordForm errorRecord{session.writer};
    StringGrid& table = session.DriveAdvStringGrid;
    StringGrid& list = session.writer.AdvStringGrid1;

    explicit DialogBench(Family family = Family::Larch) : StationBench(person, family) {}
    bool readRows(int count) {
        return runUntil([&] { return session.progress.count >= count; });
    }
    // Double click on the data of a parameter of the table.
    void edit(const QString& PrNo, const std::function<void(TInputValueForm&)>& hand) {
        expectEditor(hand);
        ProcessAdvStringGridDblClickCell(table, column::Data, rowOfNumber(table, PrNo), person);
    }
    QString data(const QString& PrNo) const { return table.cell(column::Data, rowOfNumber(table, PrNo)); }

    StringGridView& listView() { return part<StringGridView>(writeCheck, "AdvStringGrid1"); }
    QPoint cellAt(int column, int row) { return listView().visualRect(list.index(row - 1, column)).center(); }
};

}  // namespace kelvane
