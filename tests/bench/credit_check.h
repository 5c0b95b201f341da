// Whatever a request is credited with is compared with what the drive answers to that very request, at the
// place where the link hands it on.
#pragma once

#include <QStringList>
#include <functional>

#include "drive/drive_registers.h"
#include "link/request_scheduler.h"

namespace kelvane {

struct CreditCheck {
    QStringList miscredited;    // replies that were taken for the answer of another request
    bool compareState = false;  // status registers too; not while the motor moves

    CreditCheck(RequestScheduler& link, std::function<drive::PracticeDrive*()> drive) {
        QObject::connect(&link, &RequestScheduler::answered, &link,
                         [this, &link, drive](quint8 task, const QString& command, const QByteArray& RxData) {
                             if (link.ActiveFunction == OwnerAdvance)
                                 compareShape(task, command, RxData, link.Console.rules());
                             else
                                 compare(task, command, RxData, *drive());
                         });
    }
    CreditCheck(const CreditCheck&) = delete;
    CreditCheck& operator=(const CreditCheck&) = delete;

   private:
    // The console sends what a person typed and takes what comes: without its rules anything, with them any
    // answer of the function and the length.
    void compareShape(int task, const QString& command, const QByteArray& RxData, bool rules) {
        const QByteArray request = QByteArray::fromHex(command.toLatin1());
        if (!rules || request.size() < 2) return;
        const bool read = request[1] == 3 && RxData.size() > 2;
        if (RxData.mid(1, 1) != request.mid(1, 1) || (read && RxData[2] != char(2 * request.back())))
            note(task, command, RxData);
    }
    void compare(int task, const QString& command, const QByteArray& RxData, drive::PracticeDrive& drive) {
        const QByteArray request = QByteArray::fromHex(command.toLatin1());
        if (request.size() < 2) return;
        const bool write = request[1] == 6;
        if (!compareState && command.startsWith(QLatin1String("FF0321"))) {
            if (RxData.size() < 3 || RxData[2] != char(2 * request.back())) note(task, command, RxData);
            return;
        }
        QByteArray right = write ? request : drive.answer(request);
        // What it refuses now it may have answered then.
        if (!compareState && right.size() > 1 && (right[1] & 0x80)) return;
        // The value of a described parameter may have changed while its late answer was on its way.
        if (!compareState && !write && request.back() == 15 && RxData.size() > 5 && right.size() > 5)
            right.replace(3, 2, RxData.mid(3, 2));
        if (!RxData.startsWith(right)) note(task, command, RxData);
    }
    void note(int task, const QString& command, const QByteArray& RxData) {
        miscredited += QStringLiteral("task %1, %2 was given %3")
                           .arg(task)
                           .arg(command, QString::fromLatin1(RxData.toHex()));
    }
};

}  // namespace kelvane
