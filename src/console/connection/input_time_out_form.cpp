#include "console/connection/input_time_out_form.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "console/connection/console_fields_form.h"
#include "ui/icons.h"

namespace kelvane {

TInputTimeOutForm::TInputTimeOutForm(AdvanceConsole& console, QWidget* parent)
    : QDialog(parent), m_console(console) {
    setObjectName(QStringLiteral("TInputTimeOutForm"));
    setWindowTitle(QStringLiteral("Time-out"));
    setModal(true);
    TimeOutEdit = keyedEdit("TimeOutEdit", QStringLiteral("[0-9.]*"), this, 12);
    auto* OKBitBtn = named<QPushButton>("OKBitBtn", icon(Icon::Accept), QStringLiteral("OK"), this);
    OKBitBtn->setDefault(true);
    auto* row = new QHBoxLayout(this);
    row->addWidget(captionFor(TimeOutEdit, "TimeOutLabel", QStringLiteral("&Wait in ms"), this));
    row->addWidget(TimeOutEdit, 1);
    row->addWidget(OKBitBtn);
    connect(OKBitBtn, &QPushButton::clicked, this, &TInputTimeOutForm::OKBitBtnClick);
}

void TInputTimeOutForm::prepare(TimeOutTag tag) {
    m_tag = tag;
    const ConsoleSettings& settings = m_console.settings();
    TimeOutEdit->setText(QString::number(tag == TimeOutTag::First ? settings.TimeOut1 : settings.TimeOut2));
    TimeOutEdit->selectAll();
    TimeOutEdit->setFocus();
}

void TInputTimeOutForm::OKBitBtnClick() {
    if (m_console.storeTimeOut(m_tag, TimeOutEdit->text())) accept();
}

}  // namespace kelvane
