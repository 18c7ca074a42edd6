#pragma once

#include <QDateTime>

namespace vendrix {

// Where the program reads the current date and time. Injected so that dates,
// reference numbers and holiday logos can be tested.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
};

class SystemClock final : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

// A clock that shows the time it was set to; tests move it by hand.
class FixedClock final : public Clock {
public:
    explicit FixedClock(QDateTime when) : when_(std::move(when)) {}
    QDateTime now() const override { return when_; }
    void set(const QDateTime &when) { when_ = when; }

private:
    QDateTime when_;
};

} // namespace vendrix
