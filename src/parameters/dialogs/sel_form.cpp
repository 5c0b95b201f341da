#include "parameters/dialogs/sel_form.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/tab_order.h"
#include "ui/title_width.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int WidestCaption = 44;  // characters of the window's width

}  // namespace

SelForm::SelForm(const char* name, const QString& caption, QWidget* parent)
    : QDialog(parent),
      OKTransparentButton(framedButton("OKTransparentButton", Icon::Accept, QStringLiteral("OK"), this)),
      CancelTransparentButton(
          framedButton("CancelTransparentButton", Icon::Cancel, QStringLiteral("Cancel"), this)),
      m_content(new QVBoxLayout) {
    setObjectName(QLatin1String(name));
    setWindowTitle(caption);
    setWindowModality(Qt::ApplicationModal);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(OKTransparentButton);
    foot->addWidget(CancelTransparentButton);
    auto* column = new QVBoxLayout(this);
    column->addLayout(m_content, 1);
    column->addSpacing(fontMetrics().height() / 2);
    column->addLayout(foot);
    connect(OKTransparentButton, &QToolButton::clicked, this, &QDialog::accept);
    connect(CancelTransparentButton, &QToolButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, [this](int result) { answer(result == Accepted); });
}

AbLED* SelForm::addLed(const char* name, const QString& caption) {
    auto* lamp = new AbLED(caption, this);
    lamp->setObjectName(QLatin1String(name));
    lamp->setClickable(true);
    lamp->setAutoExclusive(true);
    m_content->addWidget(lamp);
    inTabOrder(lamp);
    return lamp;
}

QComboBox* SelForm::addBox(const char* name, const QString& caption) {
    auto* box = new QComboBox(this);
    box->setObjectName(QLatin1String(name));
    auto* label = new QLabel(caption, this);
    label->setBuddy(box);
    m_content->addWidget(label);
    m_content->addWidget(box);
    inTabOrder(box);
    return box;
}

// The buttons, which were made first, come last.
void SelForm::inTabOrder(QWidget* field) {
    m_fields.append(field);
    tabThroughFromStart(*this, m_fields + QList<QWidget*>{OKTransparentButton, CancelTransparentButton});
}

void SelForm::begin(std::function<void(bool)> then) {
    answer(false);
    m_then = std::move(then);
    setMinimumWidth(std::max(titleWidth(*this), fontMetrics().averageCharWidth() * WidestCaption));
    adjustSize();
    show();
}

void SelForm::answer(bool byOk) {
    const std::function<void(bool)> then = std::exchange(m_then, {});
    if (then) then(byOk);
}

void SelForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter) return OKTransparentButton->click();
    QDialog::keyPressEvent(event);
}

}  // namespace kelvane
