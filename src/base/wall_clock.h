// Date and time of day, for history lines and records. Never used to measure a wait.
#pragma once

#include <QDateTime>

namespace kelvane {

class WallClock {
   public:
    virtual ~WallClock() = default;
    virtual QDateTime now() const = 0;
};

class SystemWallClock final : public WallClock {
   public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

// Stands still where it is put; for tests and the pictures of the tour.
class FixedWallClock final : public WallClock {
   public:
    explicit FixedWallClock(QDateTime at) : m_at(std::move(at)) {}
    QDateTime now() const override { return m_at; }
    void set(QDateTime at) { m_at = std::move(at); }

   private:
    QDateTime m_at;
};

}  // namespace kelvane
