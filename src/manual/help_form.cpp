#include "manual/help_form.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QToolButton>

#include "manual/manual_pages.h"
#include "ui/icons.h"
#include "ui/named.h"

namespace kelvane {

namespace {

const QString Scheme = QStringLiteral("manual:/");

// Chapters are sources of their own, so that back and forward are the toolkit's. What a source holds is put
// into the document behind it, which the toolkit wants to hold something.
class Browser : public QTextBrowser {
   protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type == QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
        return name.path();
    }
};

}  // namespace

THelpForm::THelpForm(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("THelpForm"));
    setWindowTitle(tr("Help"));
    auto* column = new QVBoxLayout(this);
    auto* buttons = new QHBoxLayout;
    ManualBrowser = named<Browser>("ManualBrowser");
    ManualBrowser->setAccessibleName(tr("Manual"));
    ManualBrowser->setOpenExternalLinks(false);
    buildButtons(buttons);
    column->addLayout(buttons);
    auto* parts = named<QSplitter>("HelpSplitter", Qt::Horizontal);
    parts->addWidget(buildSide());
    parts->addWidget(ManualBrowser);
    parts->setStretchFactor(1, 1);
    column->addWidget(parts, 1);
    connect(ManualBrowser, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& source) { showChapter(m_manual.chapterNamed(source.path().mid(1))); });
    resize(860, 480);
}

void THelpForm::buildButtons(QHBoxLayout* row) {
    const auto button = [&](const char* name, Icon which, const QString& text, const QKeySequence& key) {
        auto* made = named<QToolButton>(name);
        made->setIcon(icon(which));
        made->setText(text);
        made->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        made->setFocusPolicy(Qt::TabFocus);
        made->setShortcut(key);
        row->addWidget(made);
        return made;
    };
    BackToolButton =
        button("BackToolButton", Icon::StepBack, tr("Back"), QKeySequence(Qt::ALT | Qt::Key_Left));
    ForwardToolButton =
        button("ForwardToolButton", Icon::StepNext, tr("Forward"), QKeySequence(Qt::ALT | Qt::Key_Right));
    row->addStretch();
    connect(BackToolButton, &QToolButton::clicked, ManualBrowser, &QTextBrowser::backward);
    connect(ForwardToolButton, &QToolButton::clicked, ManualBrowser, &QTextBrowser::forward);
    connect(ManualBrowser, &QTextBrowser::backwardAvailable, BackToolButton, &QWidget::setEnabled);
    connect(ManualBrowser, &QTextBrowser::forwardAvailable, ForwardToolButton, &QWidget::setEnabled);
    BackToolButton->setEnabled(false);
    ForwardToolButton->setEnabled(false);
}

QWidget* THelpForm::buildSide() {
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    SearchEdit = named<QLineEdit>("SearchEdit");
    SearchEdit->setClearButtonEnabled(true);
    ContentsListBox = named<QListWidget>("ContentsListBox");
    ContentsListBox->setAccessibleName(tr("Contents"));
    ContentsListBox->setWordWrap(true);
    column->addWidget(captionFor(SearchEdit, "SearchLabel", tr("&Search")));
    column->addWidget(SearchEdit);
    column->addWidget(ContentsListBox, 1);
    connect(SearchEdit, &QLineEdit::textChanged, this, &THelpForm::search);
    connect(SearchEdit, &QLineEdit::returnPressed, this, [this] { takeItem(0); });
    connect(ContentsListBox, &QListWidget::itemClicked, this,
            [this] { takeItem(ContentsListBox->currentRow()); });
    connect(ContentsListBox, &QListWidget::itemActivated, this,
            [this] { takeItem(ContentsListBox->currentRow()); });
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, SearchEdit, [this] { SearchEdit->setFocus(); });
    return side;
}

void THelpForm::setLanguage(const QString& code, const QString& pictureFolder) {
    if (code == m_code && pictureFolder == m_pictureFolder) return;
    m_code = code;
    m_pictureFolder = pictureFolder;
    m_manual = ManualText::of(code);
    if (m_manual.chapters().empty()) m_manual = ManualText::of(ManualText::languages().first());
    search(SearchEdit->text());
}

void THelpForm::openAt(const QString& window) {
    SearchEdit->clear();
    const auto& chapter = m_manual.chapters().at(static_cast<size_t>(m_manual.chapterOf(window)));
    ManualBrowser->setSource(QUrl(Scheme % chapter.name));
    ManualBrowser->setFocus();
}

void THelpForm::openAtMessage(const QString& text) {
    openAt(QStringLiteral("messages"));
    lookFor(text.section(QLatin1Char('\n'), 0, 0).trimmed());
}

void THelpForm::lookFor(const QString& words) {
    ManualBrowser->moveCursor(QTextCursor::Start);
    ManualBrowser->find(words);
}

void THelpForm::showChapter(int chapter) {
    if (chapter < 0) return;
    const auto& shown = m_manual.chapters().at(static_cast<size_t>(chapter));
    setManualText(*ManualBrowser->document(), shown.text, m_pictureFolder,
                  ManualBrowser->viewport()->width() * 0.95);
    if (SearchEdit->text().isEmpty()) ContentsListBox->setCurrentRow(chapter);
}

void THelpForm::search(const QString& words) {
    m_hits = m_manual.find(words);
    ContentsListBox->clear();
    if (words.trimmed().isEmpty())
        for (const ManualChapter& chapter : m_manual.chapters()) ContentsListBox->addItem(chapter.title);
    for (const ManualText::Hit& hit : m_hits)
        ContentsListBox->addItem(m_manual.chapters().at(static_cast<size_t>(hit.chapter)).title %
                                 QStringLiteral(": ") % hit.line);
}

void THelpForm::takeItem(int row) {
    if (row < 0 || row >= ContentsListBox->count()) return;
    const bool found = !SearchEdit->text().trimmed().isEmpty();
    const size_t chapter = static_cast<size_t>(found ? m_hits.at(static_cast<size_t>(row)).chapter : row);
    ManualBrowser->setSource(QUrl(Scheme % m_manual.chapters().at(chapter).name));
    if (found) lookFor(SearchEdit->text().trimmed());
}

}  // namespace kelvane
