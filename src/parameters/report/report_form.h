// TReportForm: the preview of a report, with printing and PDF, A4 or Letter. The shell shows it when the
// Parameter window asks for it; it stays open until the person closes it.
#pragma once

#include <QDialog>
#include <QPrinter>
#include <memory>

#include "base/operator.h"
#include "base/whole_file.h"
#include "parameters/report/print_records.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QToolButton;

namespace kelvane {

class PageView;
class TransparentButton;
enum class Icon : int;

class TReportForm : public QDialog {
    Q_OBJECT
   public:
    explicit TReportForm(Operator& person, QWidget* parent = nullptr);

    // Takes the report and shows its first page.
    void setReport(const Report& report);
    // The whole report on pages of the chosen size; after setReport(). Errors: the file cannot be written.
    FileResult writePdf(const QString& path) const;

    PageView* QuickRep1 = nullptr;

   private:
    void build();
    TransparentButton* addButton(QHBoxLayout* row, const char* name, Icon which, const QString& text);
    void buildButtons(QHBoxLayout* row);
    QToolButton* addPageButton(QHBoxLayout* row, const char* name, const QIcon& icon, const QString& text,
                               int step);
    void choosePageSize();
    void showPages();
    void showPageNumber();
    void savePdf();
    void print();

    Operator& m_person;
    std::unique_ptr<QPrinter> m_printer;  // with the window's content, from the first report on
    Report m_report;
    QComboBox* PageSizeComboBox;
    QLabel* PageLabel;
    QToolButton* PreviousToolButton;
    QToolButton* NextToolButton;
};

}  // namespace kelvane
