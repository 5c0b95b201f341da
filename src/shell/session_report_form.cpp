#include "shell/session_report_form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "manual/manual_pages.h"
#include "shell/session_report.h"
#include "ui/icons.h"
#include "ui/named.h"

namespace kelvane {

TSessionReportForm::TSessionReportForm(Tool& tool, std::function<QImage()> trend, QWidget* parent)
    : QDialog(parent), m_tool(tool), m_trend(std::move(trend)) {
    setObjectName(QStringLiteral("TSessionReportForm"));
    setWindowTitle(tr("Session Report"));
    auto* column = new QVBoxLayout(this);
    auto* WhatLabel = plainLabel("WhatLabel", tr("A PDF with drive, connection, faults, the tables and the "
                                                 "comparison that are open, and the last trend."));
    WhatLabel->setWordWrap(true);
    NotesMemo = named<QPlainTextEdit>("NotesMemo");
    NotesMemo->setTabChangesFocus(true);
    column->addWidget(WhatLabel);
    column->addWidget(captionFor(NotesMemo, "NotesLabel", tr("&Notes")));
    column->addWidget(NotesMemo, 1);
    auto* buttons = new QHBoxLayout;
    auto* save = named<QPushButton>("SaveReportButton", icon(Icon::Save), tr("&Save..."));
    auto* cancel = named<QPushButton>("CancelReportButton", icon(Icon::Cancel), tr("Cancel"));
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    connect(save, &QPushButton::clicked, this, &TSessionReportForm::save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    column->addLayout(buttons);
    resize(520, 320);
}

void TSessionReportForm::save() {
    Operator& person = m_tool.site.person;
    person.suggestedName = sessionReportName(m_tool);
    const auto path = person.saveFile(QStringLiteral("PDF Files(*.pdf)|*.pdf"), QStringLiteral("pdf"));
    if (!path) return;
    const QImage trend = m_trend();
    const FileResult written =
        writeHtmlPdf(sessionReport(m_tool, NotesMemo->toPlainText(), !trend.isNull()), trend, *path);
    if (!written.ok) return person.tell(written.error, QStringLiteral("Error"), BoxIcon::Stop);
    m_tool.link.ShowHistoryMsg(QStringLiteral("Session report: ") % *path);
    accept();
}

}  // namespace kelvane
