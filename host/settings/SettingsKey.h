#pragma once

#include "host/settings/KeyChange.h"
#include "host/settings/ObservationOption.h"
#include "host/settings/SettingsCodec.h"
#include "host/settings/SettingsKeyBase.h"
#include "host/settings/SettingsStore.h"
#include "host/settings/Subscription.h"
#include "host/settings/ValueRule.h"

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace host::settings {

namespace detail {
template <typename T>
struct IsOptional : std::false_type {};
template <typename U>
struct IsOptional<std::optional<U>> : std::true_type {};
} // namespace detail

/// A typed settings key: a name in the store, a value type and a default.
///
/// Reads give the stored value, or the default when there is no entry or the entry cannot be
/// decoded. A decoded value outside the key's ValueRule reads as the nearest valid number of a
/// range, or as the default; the entry itself is left as it is. The default lives in memory only: reading never writes. Writing an absent optional
/// removes the entry. Subscribers are told of every change of the entry, made in this process
/// or by another one; a handler runs on the thread of the store (the main thread).
template <typename T>
class SettingsKey final : public SettingsKeyBase {
public:
    using Value = T;
    using Codec = SettingsCodec<T>;
    using Handler = std::function<void(const KeyChange<T>&)>;

    /// A key named `name` in `store`, read as `defaultValue` while it has no valid entry, and
    /// holding only values that `rule` accepts.
    SettingsKey(SettingsStore& store, QString name, T defaultValue, ValueRule rule)
        : store_(&store), name_(std::move(name)), default_(std::move(defaultValue)), rule_(std::move(rule)) {}

    /// The value in force.
    T read() const { return decodeEntry(store_->entry(name_)); }

    /// Stores `value` (an absent optional removes the entry). Writing the default stores it too:
    /// from then on the entry, not the default, is in force.
    void write(const T& value) const {
        if constexpr (detail::IsOptional<T>::value) {
            if (!value.has_value()) {
                store_->removeEntry(name_);
                return;
            }
        }
        store_->setEntry(name_, Codec::encode(value));
    }

    /// The key's default.
    const T& defaultValue() const { return default_; }

    /// Calls `handler` for each later change of the entry, and once at once with `Initial`.
    /// The returned handle keeps the subscription; dropping it ends it.
    [[nodiscard]] Subscription subscribe(ObservationOption option, Handler handler) const {
        auto last = std::make_shared<T>(read());
        auto shared = std::make_shared<Handler>(std::move(handler));
        auto connection = QObject::connect(store_, &SettingsStore::entryChanged, store_,
            [this, last, shared](const QString& changed) {
                if (changed != name_) {
                    return;
                }
                KeyChange<T> change{read(), std::optional<T>(*last)};
                *last = change.newValue;
                (*shared)(change);
            });
        if (option == ObservationOption::Initial) {
            (*shared)(KeyChange<T>{*last, std::nullopt});
        }
        return Subscription(std::move(connection));
    }

    /// The store this key reads and writes.
    SettingsStore& store() const { return *store_; }

    const QString& name() const override { return name_; }
    QString typeName() const override { return QString::fromLatin1(Codec::typeName); }
    bool hasEntry() const override { return store_->contains(name_); }
    QString valueText() const override { return Codec::encode(read()); }
    QString defaultText() const override { return Codec::encode(default_); }
    const ValueRule& rule() const override { return rule_; }
    bool writeText(const QString& text) const override {
        auto decoded = Codec::decode(QVariant(text));
        if (!decoded || !rule_.accepts(Codec::encode(*decoded))) {
            return false;
        }
        write(*decoded);
        return true;
    }
    void remove() const override { store_->removeEntry(name_); }

private:
    T decodeEntry(const QVariant& entry) const {
        if (!entry.isValid()) {
            return default_;
        }
        auto decoded = Codec::decode(entry);
        if (!decoded) {
            return default_;
        }
        if (rule_.accepts(Codec::encode(*decoded))) {
            return std::move(*decoded);
        }
        if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>) {
            if (rule_.isRange()) {
                return static_cast<T>(rule_.nearest(static_cast<double>(*decoded)));
            }
        }
        return default_;
    }

    SettingsStore* store_;
    QString name_;
    T default_;
    ValueRule rule_;
};

} // namespace host::settings
