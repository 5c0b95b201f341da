// TransparentButton, the picture button of tool bars and dialogs: icon over or beside its caption. Captions
// come from language files, so the button grows with its text and keeps a shortcut of its own.
#pragma once

#include <QToolButton>

namespace kelvane {

enum class Icon : int;

class TransparentButton : public QToolButton {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QString hint READ toolTip WRITE setToolTip)
   public:
    enum class Layout { IconOver, IconLeft };

    explicit TransparentButton(QWidget* parent = nullptr);
    TransparentButton(const QIcon& icon, const QString& text, QWidget* parent = nullptr,
                      Layout layout = Layout::IconOver);

    void setText(const QString& text);
    void setLayout(Layout layout);  // over: flat, 32-pixel icon; left: framed, 20-pixel icon

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

   protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;  // Enter presses it, like Space
};

// The button of bars and dialog feet: framed, its icon beside its text.
TransparentButton* framedButton(const char* name, Icon which, const QString& text, QWidget* parent,
                                const QString& hint = {});

}  // namespace kelvane
