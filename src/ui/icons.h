// The tool's own drawings: icons of buttons and menus, tree images, the pictures of the nine drive families
// and the logo. Icons are two-tone SVGs that take their line colour from the palette when they are painted,
// so they fit light and dark and every scale.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

namespace kelvane {

// clang-format off
enum class Icon : int {
    ComSetup, Parameter, QuickSetup, Advance, Keypad, Trend, Monitor,
    Open, Save, Exit, ReadDrive, ReadFile, WriteSelect, WriteAll, Compare, Print,
    Language, Find, Previous, Next, Undo, Redo, Backup, Help, About,
    Pid, AutoTuning, MultiStep, Copy, Close, Folder, FolderUp, File,
    Accept, Cancel, Test, Connect, Disconnect, Start, Stop, Clear, Option, Cursor, Picture, Zoom,
    Add, Remove, Edit, Run, Fault, Lock, Motor, More,
    Refused, Up, Down, ZoomIn, ZoomOut, Reset,
    TreeDrive, TreeFile, TreeOpen, TreeCompare, TreeParameters,
    Motor1, Motor2, StepBack, StepNext,
    Count_,
};
// clang-format on

// Follows the palette; an icon for each number below Count_.
QIcon icon(Icon which);
// The same as a picture, in the colours of a palette: for windows that have their own.
QPixmap iconPicture(Icon which, const QPalette& palette, QSize size, qreal devicePixelRatio = 1);
// Name of the drawing ("com_setup"), as in the resource ":/kelvane/icons/com_setup.svg".
QString iconName(Icon which);
// The images of the parameter tree, 0 to 4; 4 is a parameter list. Any other index gives a null icon.
QIcon treeImage(int index);
QIcon applicationIcon();

// A picture that keeps its proportions in whatever room it has, sharp at every scale.
class PictureBox : public QWidget {
    Q_OBJECT
   public:
    explicit PictureBox(QWidget* parent = nullptr);
    void showFamily(quint8 DriveFamily);  // nothing for a number that is no family
    void showLogo();
    void showKeypad();  // the body of the keypad, 244 x 389
    // Block diagram of a family's PID; nothing for a family without one.
    void showPidDiagram(quint8 DriveFamily);
    bool isEmpty() const { return m_kind == Kind::Nothing; }
    QSize sizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QByteArray wantedDrawing() const;
    enum class Kind { Nothing, Family, Logo, Keypad, PidDiagram };
    Kind m_kind = Kind::Nothing;
    quint8 m_family = 0;
    QByteArray m_drawnFrom;  // drawing of m_drawn
    QPixmap m_drawn;
};

}  // namespace kelvane
