#pragma once

#include <QMetaObject>
#include <QObject>

namespace host::settings {

/// Keeps one subscription alive: the handler stops being called when this handle is
/// destroyed or reset. Move-only.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(QMetaObject::Connection connection) : connection_(std::move(connection)) {}
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    Subscription(Subscription&& other) noexcept : connection_(std::move(other.connection_)) {
        other.connection_ = {};
    }
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            connection_ = std::move(other.connection_);
            other.connection_ = {};
        }
        return *this;
    }
    ~Subscription() { reset(); }

    /// Ends the subscription now.
    void reset() {
        if (connection_) {
            QObject::disconnect(connection_);
        }
        connection_ = {};
    }

    /// Whether the subscription is still connected.
    bool isActive() const { return static_cast<bool>(connection_); }

private:
    QMetaObject::Connection connection_;
};

} // namespace host::settings
