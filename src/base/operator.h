// The person at the machine, as engines see one: questions with an answer, nothing else. The shell answers
// with real boxes and dialogs; tests answer from a script. A call may run a nested event loop, so an engine
// stops its own timer before, holds no iterator or reference over the call, and looks at its state again
// after it.
#pragma once

#include <QStringList>
#include <optional>

namespace kelvane {

enum class BoxIcon { None, Information, Question, Exclamation, Stop };
// YesNoOrLeave shows Yes and No like YesNo; Escape and the close box answer Cancel there and No in YesNo.
enum class BoxButtons { Ok, OkCancel, YesNo, RetryCancel, YesNoOrLeave };
enum class BoxAnswer { Ok, Cancel, Yes, No, Retry };

// Information under a question.
struct BoxPanel {
    QStringList header;
    QList<QStringList> rows;
    QString withoutRows;    // in their place
    bool doubtful = false;  // Enter alone shall not say Yes
};

// What the link does after a failure that the operator was asked about.
enum class LinkAnswer { Retry = 1, Ignore = 2, Abort = 3 };

// One run of the value editor (TInputValueForm). Numbers are without decimal point; InputDot places stand
// behind DecimalSep in texts. The editor leaves the accepted text in Text and sets InputAccepted.
struct ValueEdit {
    QString PrInforVrLabel;
    QString UnitVrLabel;
    QString InputOldText;
    QString Text;
    int InputMin = 0;
    int InputMax = 0;
    int InputDefault = 0;
    int InputDot = 0;
    bool fromList = false;  // InputComboBox with every value from InputMin to InputMax instead of InputEdit
    bool InputAccepted = false;
};

class Operator {
   public:
    virtual ~Operator() = default;
    virtual BoxAnswer box(const QString& text, const QString& title, BoxIcon icon, BoxButtons buttons) = 0;
    // The same question with a table of information under it.
    virtual BoxAnswer boxOverPanel(const QString& text, const QString& title, BoxIcon icon,
                                   BoxButtons buttons, const BoxPanel& panel) {
        Q_UNUSED(panel);
        return box(text, title, icon, buttons);
    }
    // Filters are written "Name(*.ext)|*.ext|Name2(*.e2)|*.e2"; the answer is a full path, or nothing on
    // Cancel.
    virtual std::optional<QString> openFile(const QString& filter) = 0;
    // suffix (".txt", ".CSV") is appended to the chosen name whatever it ends in; overwriting is asked for
    // the name with its suffix. The answer has the suffix. Without a dot (trd) it is the extension of a name
    // that has none; ".bmp|.jpg" has one for each part of the filter, of which the person picks one.
    virtual std::optional<QString> saveFile(const QString& filter, const QString& suffix) = 0;
    // TMessageForm: ErrNameVrLabel is its text; Ignore is offered only when ignoreShown.
    virtual LinkAnswer linkFailure(const QString& ErrNameVrLabel, bool ignoreShown) = 0;
    virtual void editValue(ValueEdit& edit) = 0;

    QString suggestedName;   // for the next saveFile(), without suffix; used once
    QString overwriteTitle;  // of the question for overwriting in the next saveFile(); used once

    void tell(const QString& text, const QString& title, BoxIcon icon = BoxIcon::None) {
        box(text, title, icon, BoxButtons::Ok);
    }
    bool yes(const QString& text, const QString& title, BoxIcon icon = BoxIcon::Question) {
        return box(text, title, icon, BoxButtons::YesNo) == BoxAnswer::Yes;
    }
};

}  // namespace kelvane
