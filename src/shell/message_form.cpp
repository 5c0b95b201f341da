#include "shell/message_form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/display_label.h"
#include "ui/named.h"

namespace kelvane {

TMessageForm::TMessageForm(QWidget* parent) : WaitForm(QStringLiteral("Message"), parent) {
    setObjectName(QStringLiteral("TMessageForm"));
    ErrNameVrLabel = new VrLabel(this);
    ErrNameVrLabel->setObjectName(QStringLiteral("ErrNameVrLabel"));
    ErrNameVrLabel->setAlignment(Qt::AlignCenter);
    RetryBitBtn = addButton("RetryBitBtn", QStringLiteral("&Retry"), QStringLiteral("Send the request again"),
                            LinkAnswer::Retry);
    IgnoreBitBtn = addButton("IgnoreBitBtn", QStringLiteral("&Ignore"),
                             QStringLiteral("Leave this request out"), LinkAnswer::Ignore);
    AbortBitBtn = addButton("AbortBitBtn", QStringLiteral("&Abort"), QStringLiteral("Take the link off line"),
                            LinkAnswer::Abort);
    RetryBitBtn->setDefault(true);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(fontMetrics().height());
    column->addWidget(ErrNameVrLabel);
    auto* advice =
        plainLabel("AdviceLabel",
                   tr("Look at the cable and at the power of the drive. Mode, baud rate and protocol of Com "
                      "Setup must be those of the drive; Auto-Detect finds them. Retry goes on where it "
                      "stopped; Abort takes the link off line."),
                   this);
    advice->setWordWrap(true);
    column->addWidget(advice);
    auto* row = new QHBoxLayout;
    for (QPushButton* button : {RetryBitBtn, IgnoreBitBtn, AbortBitBtn}) row->addWidget(button);
    column->addLayout(row);
}

QPushButton* TMessageForm::addButton(const char* name, const QString& caption, const QString& hint,
                                     LinkAnswer LinkAction) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(hint);
    connect(button, &QPushButton::clicked, this, [this, LinkAction] {
        hide();
        Q_EMIT answered(LinkAction);
    });
    return button;
}

void TMessageForm::ask(const QString& text, bool ignoreShown) {
    ErrNameVrLabel->setText(text);
    setAccessibleDescription(text);
    IgnoreBitBtn->setVisible(ignoreShown);
    adjustSize();
    RetryBitBtn->setFocus();
    show();
}

}  // namespace kelvane
