#include "quicksetup/qs_source_form.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

TQSsourceForm::TQSsourceForm(QWidget* parent)
    : QDialog(parent),
      DriveAbLED(addLamp("DriveAbLED", tr("Load parameter Settings from drive (communication)"))),
      FileAbLED(addLamp("FileAbLED", tr("Load parameter Settings from project (file)"))),
      OKTransparentButton(framedButton("OKTransparentButton", Icon::Accept, tr("OK"), this)) {
    setObjectName(QStringLiteral("TQSsourceForm"));
    setWindowTitle(tr("Source of Parameter Settings"));
    setWindowModality(Qt::ApplicationModal);
    DriveAbLED->setChecked(true);
    OKTransparentButton->setToolTip(tr("Start with the chosen source"));
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(OKTransparentButton);
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(room, room, room, room);
    column->addWidget(DriveAbLED);
    column->addWidget(FileAbLED);
    column->addSpacing(room);
    column->addLayout(foot);
    QWidget::setTabOrder(FileAbLED, OKTransparentButton);
    connect(OKTransparentButton, &QToolButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::accepted, this, [this] {
        Q_EMIT chosen(FileAbLED->isChecked() ? SettingsSource::Project : SettingsSource::Drive);
    });
    connect(this, &QDialog::rejected, this, &TQSsourceForm::cancelled);
}

AbLED* TQSsourceForm::addLamp(const char* name, const QString& caption) {
    auto* lamp = named<AbLED>(name, caption, this);
    lamp->setClickable(true);
    lamp->setAutoExclusive(true);
    return lamp;
}

void TQSsourceForm::showEvent(QShowEvent* event) {
    (FileAbLED->isChecked() ? FileAbLED : DriveAbLED)->setFocus();
    QDialog::showEvent(event);
}

void TQSsourceForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return OKTransparentButton->click();
    QDialog::keyPressEvent(event);
}

}  // namespace kelvane
