#include "parameters/dialogs/sel_para_source_form.h"

#include <QVBoxLayout>

#include "ui/display_label.h"
#include "ui/lamp.h"

namespace kelvane {

TSelParaSourceForm::TSelParaSourceForm(QWidget* parent)
    : SelForm("TSelParaSourceForm", QStringLiteral("Select Parameter Source"), parent),
      VrLabel1(new VrLabel(this)) {
    VrLabel1->setObjectName(QStringLiteral("VrLabel1"));
    content()->addWidget(VrLabel1);
    DriveAbLED = addLed("DriveAbLED", QStringLiteral("Source from Drive"));
    FileAbLED = addLed("FileAbLED", QStringLiteral("Source from File"));
    light(TableSide::Drive);
}

void TSelParaSourceForm::light(TableSide side) {
    (side == TableSide::Drive ? DriveAbLED : FileAbLED)->setChecked(true);
}

TableSide TSelParaSourceForm::lit() const {
    return FileAbLED->isChecked() ? TableSide::File : TableSide::Drive;
}

void TSelParaSourceForm::ask(const QString& text, std::function<void(std::optional<TableSide>)> then) {
    VrLabel1->setText(text);
    (lit() == TableSide::Drive ? DriveAbLED : FileAbLED)->setFocus();
    begin([this, then = std::move(then)](bool byOk) { then(byOk ? std::optional(lit()) : std::nullopt); });
}

}  // namespace kelvane
