#include "host/settings/SettingsCodec.h"

#include <charconv>
#include <cmath>
#include <string>

namespace host::settings {

namespace {

/// The entry as text, when it is one (hand-edited lists and typed variants are not).
std::optional<QString> textOf(const QVariant& entry) {
    if (entry.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return entry.toString().trimmed();
}

template <typename F>
std::optional<F> parseNumber(const QVariant& entry) {
    auto text = textOf(entry);
    if (!text || text->isEmpty()) {
        return std::nullopt;
    }
    const std::string bytes = text->toStdString();
    F value{};
    auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), value);
    if (error != std::errc() || end != bytes.data() + bytes.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

template <typename F>
QString formatNumber(F value) {
    char buffer[64];
    auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    (void)error; // 64 characters hold any float or double
    return QString::fromLatin1(buffer, static_cast<int>(end - buffer));
}

} // namespace

std::optional<bool> SettingsCodec<bool>::decode(const QVariant& entry) {
    auto text = textOf(entry);
    if (!text) {
        return std::nullopt;
    }
    if (text->compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 || *text == QLatin1String("1")) {
        return true;
    }
    if (text->compare(QLatin1String("false"), Qt::CaseInsensitive) == 0 || *text == QLatin1String("0")) {
        return false;
    }
    return std::nullopt;
}

QString SettingsCodec<bool>::encode(bool value) {
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

std::optional<int> SettingsCodec<int>::decode(const QVariant& entry) {
    auto text = textOf(entry);
    if (!text || text->isEmpty()) {
        return std::nullopt;
    }
    const std::string bytes = text->toStdString();
    int value = 0;
    const char* begin = bytes.data();
    if (*begin == '+') {
        ++begin;
    }
    auto [end, error] = std::from_chars(begin, bytes.data() + bytes.size(), value);
    if (error != std::errc() || end != bytes.data() + bytes.size()) {
        return std::nullopt;
    }
    return value;
}

QString SettingsCodec<int>::encode(int value) {
    return QString::number(value);
}

std::optional<float> SettingsCodec<float>::decode(const QVariant& entry) {
    return parseNumber<float>(entry);
}

QString SettingsCodec<float>::encode(float value) {
    return formatNumber(value);
}

std::optional<double> SettingsCodec<double>::decode(const QVariant& entry) {
    return parseNumber<double>(entry);
}

QString SettingsCodec<double>::encode(double value) {
    return formatNumber(value);
}

std::optional<QString> SettingsCodec<QString>::decode(const QVariant& entry) {
    if (entry.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return entry.toString();
}

QString SettingsCodec<QString>::encode(const QString& value) {
    return value;
}

std::optional<std::optional<QUuid>> SettingsCodec<std::optional<QUuid>>::decode(const QVariant& entry) {
    auto text = textOf(entry);
    if (!text) {
        return std::nullopt;
    }
    const QUuid uuid = QUuid::fromString(*text);
    if (uuid.isNull()) {
        return std::nullopt;
    }
    return std::optional<QUuid>(uuid);
}

QString SettingsCodec<std::optional<QUuid>>::encode(const std::optional<QUuid>& value) {
    if (!value) {
        return {};
    }
    return value->toString(QUuid::WithoutBraces).toUpper();
}

} // namespace host::settings
