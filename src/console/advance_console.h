// The Advance console without its window: a raw Modbus console for people who know the drive's registers.
// Owns its pages as engines of their own (command list, register page, listener, flasher), its log and the
// road to the link, and holds what they share: the fixed and the free command, the last read, time-outs,
// title and the .cml file. TAdvanceForm shows it; the shell opens it as a window that owns the link.
#pragma once

#include <QObject>

#include "base/save_file.h"
#include "console/flasher/flasher.h"
#include "console/list/command_list.h"
#include "console/listener/port_listener.h"
#include "console/log/console_log.h"
#include "console/log/frame_explainer.h"
#include "console/panel/drive_panel.h"
#include "link/com_setup.h"

namespace kelvane {

// What the console works on; all of it outlives the console.
struct ConsoleSite {
    RequestScheduler& link;
    ComSetup& comSetup;
    TickClock& clock;
    const WallClock& wallClock;
    Voice voice;
    QString programFolder;
};

enum class ConsolePage { Connection, Monitor, Flasher };  // menu "Select"
enum class ConnectionPage { A, B };
enum class TimeOutTag { First = 1, Second = 2 };  // Tag of TInputTimeOutForm

class AdvanceConsole : public QObject {
    Q_OBJECT
   public:
    explicit AdvanceConsole(const ConsoleSite& site);

    ConsoleSite site;
    ConsoleTraffic traffic;
    ConsoleLog log;
    CommandList list;
    DrivePanel panel;
    PortListener listener;
    Flasher flasher;

    StringGrid RxAdvStringGrid;
    static constexpr size_t RxRoom = 130;
    using RxTexts = std::array<QString, RxRoom>;
    RxTexts RxHexText, RxDecText, RxBinText, RxAsciiText;

    // The fixed command.
    QString IDLabeledEdit = QStringLiteral("1");
    bool writeOption = false;  // OptionComboBox: "Read" or "Write"
    QString AddressLabeledEdit = QStringLiteral("2100");
    QString DataLabeledEdit = QStringLiteral("1");
    bool hexData = false;  // ChangeHDButton: "D" or "H"

    QString RepeatLabeledEdit = QStringLiteral("0");
    ConsolePage page = ConsolePage::Connection;
    ConnectionPage connectionPage = ConnectionPage::A;
    QString caption;                                  // of the window
    QString projectName = QStringLiteral("default");  // panel 7
    QString TimeOutCaption = QStringLiteral("20 ms");
    QString TimeOut2Caption = QStringLiteral("0 ms");

    // What is known of registers, for the explanation of a line; set by the shell.
    RegisterNames registerNames;
    QString explain(const ConsoleLine& line) const;
    QString explainLine(const HeardLine& heard) const;

    ConsoleSettings& settings() { return site.link.Console; }
    const ConsoleRecord& record() const { return site.link.Console.Log; }
    bool running() const { return list.running() || panel.running(); }

    // The window was opened, and may it be closed? When not, everything has been stopped and readyToClose()
    // follows.
    void opened();
    bool mayClose();
    FileResult FormClose();

    void SendFixTransparentButtonClick();
    void SendAnyTransparentButtonClick(const QString& text);
    // Enter in InputDataEdit: true when it sent.
    bool InputDataEditEnter(const QString& text);
    void RUNTransparentButtonClick();
    void STOPTransparentButtonClick();
    void showPage(ConsolePage shown);
    void showConnectionPage(ConnectionPage shown);
    void NewTransparentButtonClick();
    void InsertTransparentButtonClick(int current);
    void DelTransparentButtonClick(int current);
    // False when the text is no number.
    bool storeTimeOut(TimeOutTag tag, const QString& text);
    // Nothing may be on its way while com setup tests the line on a port of its own.
    void prepareComSetup();
    void languageChanged() { panel.SelDriveComboBoxChange(); }

    // Files. SaveFile gives the content of a .cml file.
    QByteArray SaveFile();
    void LoadFile(const QString& path, const QByteArray& bytes, bool ok);
    FileResult saveDefault();
    void OpenClick();
    void openPath(const QString& path);
    void SaveClick();

   Q_SIGNALS:
    void changed();      // what the window shows beside grids and log
    void singleReply();  // RxAdvStringGrid was filled
    void readyToClose();
    void fileOpened(const QString& path);
    void fileMissing(const QString& path);

   private:
    void connectLink();
    std::optional<RegisterName> nameOf(quint16 address) const;
    void takeGoodReply(const QString& command, const QByteArray& RxData);
    void showWords(const QString& command, const std::vector<quint16>& words);
    bool fixedCommand(QString& command);
    QString dataField(bool& legal);
    std::optional<quint16> repeats();
    void complainOfNumber(const QString& text);
    void followComSetup();
    void loadDefault();
    CommandListFile state();
    void take(const CommandListFile& file, const CommandListRead& read);
    void stopAll();
    void closeNow();
    QString defaultPath() const;

    TickTimer m_closeLimit;
    bool m_closing = false;
};

}  // namespace kelvane
