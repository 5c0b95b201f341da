// THelpForm: the manual in a window, with contents, search and back. The shell opens it at the chapter of the
// window in front when F1 is pressed; it stays usable over that window.
#pragma once

#include <QDialog>

#include "manual/manual_text.h"

class QHBoxLayout;
class QLineEdit;
class QListWidget;
class QTextBrowser;
class QToolButton;

namespace kelvane {

class THelpForm : public QDialog {
    Q_OBJECT
   public:
    explicit THelpForm(QWidget* parent = nullptr);

    // Of a ManualText code; pictures are those of the folder.
    void setLanguage(const QString& code, const QString& pictureFolder);
    void openAt(const QString& window);
    // The chapter of messages, at the one with this text.
    void openAtMessage(const QString& text);

   private:
    QWidget* buildSide();
    void buildButtons(QHBoxLayout* row);
    void showChapter(int chapter);
    void lookFor(const QString& words);
    void search(const QString& words);
    void takeItem(int row);

    ManualText m_manual;
    QString m_code;
    QString m_pictureFolder;
    std::vector<ManualText::Hit> m_hits;  // behind the list while something is searched for
    QListWidget* ContentsListBox;
    QLineEdit* SearchEdit;
    QTextBrowser* ManualBrowser;
    QToolButton* BackToolButton = nullptr;
    QToolButton* ForwardToolButton = nullptr;
};

}  // namespace kelvane
