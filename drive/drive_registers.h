// A practice drive of one family as a Modbus slave sees the line: it answers the bodies of requests from its
// register map, carries out commands and lets the motor behind it move. The line model calls it; whoever
// plays the plant's side (a test, the tour, a person) reaches the motor and the parameters through it.
#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "drive/motor_model.h"
#include "drive/parameter_store.h"
#include "drive/pid_model.h"

namespace kelvane::drive {

struct DriveOptions {
    uint8_t address = 1;             // answered beside FFh
    bool hazelTellsOsier = false;    // Hazel only: family code 5 at 2110h, known by its 10 groups
    bool tellsTexts = true;          // false: neither 32ccH nor 33ccH exists
    bool reservedEnabled = true;     // bit 5 of the second state word; false also locks the reserved group
    bool frequencyFromLink = true;   // bit 8
    bool externalFrequency = false;  // bit 9
    bool commandsFromLink = true;    // bit 10
    std::optional<uint8_t> familyCode{};  // answered at 2110h in place of the family's own
    bool asKeypad = false;                // plays a keypad that holds the family's values: no drive behind it
    double tuneSeconds = 5;
    uint8_t tuneResult = 0;    // of every tuning run; not 0: it fails with this code
    bool workingLoad = false;  // the motor's load changes as a machine's does
    double tripSeconds = 0;    // of running, behind which the drive trips with an overload; 0: never
};

class PracticeDrive {
   public:
    static constexpr uint8_t CommonAddress = 0xFF;

    // The rows that data points to must outlive the drive.
    explicit PracticeDrive(const FamilyData& data, const DriveOptions& options = {});

    // True when the request is meant for this drive; address 0 is meant for all and is not answered.
    bool hears(const QByteArray& body) const;
    // Answers a request body (address, function, data) with a reply body; empty when it keeps silent.
    QByteArray answer(const QByteArray& body);
    // Reply body that refuses a request with any exception code.
    static QByteArray refusal(const QByteArray& body, uint8_t exceptionCode);

    void advanceUs(qint64 us);

    Family family() const { return m_traits.family; }
    MotorModel& motor() { return m_motor; }
    ParameterStore& parameters() { return m_parameters; }
    DriveOptions& options() { return m_options; }

    // Present word of one register; nothing when it does not exist.
    std::optional<uint16_t> word(uint16_t reg) const;
    // Result code of the next tuning run in place of the usual one: 0 well, else a code with a text.
    void setNextTuneResult(uint8_t code) { m_nextTuneResult = code; }
    bool tuning() const { return m_tuneSecondsLeft > 0; }

   private:
    using Words = std::vector<uint16_t>;
    using ReadResult = std::variant<Words, Refusal>;

    QByteArray answerRead(const QByteArray& body) const;
    QByteArray answerWrite(const QByteArray& body);
    ReadResult read(uint16_t reg, uint16_t count) const;
    ReadResult readKeypad(uint16_t reg, uint16_t count) const;
    Refusal write(uint16_t reg, uint16_t word);

    std::optional<Words> textBlock(uint16_t reg) const;
    std::optional<uint16_t> identityWord(uint16_t reg) const;
    std::optional<uint16_t> stateWord(uint16_t reg) const;
    std::optional<uint16_t> displayWord(uint16_t reg) const;
    std::optional<uint16_t> commandWord(uint16_t reg) const;
    std::optional<uint16_t> countWord(uint16_t reg) const;

    uint16_t codedState() const;
    uint16_t plainState() const;
    uint16_t itemWord(const StatusItem& item) const;
    double quantity(Quantity which) const;
    uint16_t displayFormat() const;
    uint16_t resultWord() const;

    std::optional<Refusal> writeCommand(uint16_t reg, uint16_t word);
    Refusal operate(uint16_t word);
    Refusal reset(uint16_t word);
    Refusal copyOrKey(uint16_t word);
    Refusal writeParameter(uint16_t reg, uint16_t word);
    void takeMotorSettings();
    void takePidSettings();
    void startTuning();
    void endTuning(uint8_t result);
    void tick(double seconds);
    void move(double seconds);
    bool controls() const;

    FamilyData m_data;
    const FamilyTraits& m_traits;
    DriveOptions m_options;
    ParameterStore m_parameters;
    MotorModel m_motor;
    PidModel m_pid;
    uint16_t m_lastOrder = 0;  // word last written to 2000h
    bool m_copyMode = false;
    size_t m_display = 0;  // presses of the arrow key, which step the user display on
    uint16_t m_tuneMode = 0;
    double m_tuneSecondsLeft = 0;
    uint8_t m_tuneResult = 0;
    uint8_t m_nextTuneResult = 0;
    double m_runSeconds = 0;
    double m_untilTrip = 0;
};

}  // namespace kelvane::drive
