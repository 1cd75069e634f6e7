#pragma once

#include <QString>
#include <QUuid>
#include <QVariant>

#include <optional>

namespace host::settings {

/// The text form of each value type in the settings file.
///
/// `decode` gives nothing for an entry that is not a valid text of the type, so that the key
/// falls back to its default; `encode` gives the canonical text. `typeName` names the type in
/// the command line's messages.
///
/// - bool: "true" / "false" (reads also "1" / "0", in any letter case).
/// - int: decimal integer.
/// - float, double: the shortest text that reads back to the same value ("0.7", "220"); only
///   finite numbers decode.
/// - QString: the text itself.
/// - std::optional<QUuid>: the UUID in canonical upper-case form without braces; absent means no
///   entry. Any UUID text decodes (braces and letter case are ignored).
template <typename T>
struct SettingsCodec;

template <>
struct SettingsCodec<bool> {
    static std::optional<bool> decode(const QVariant& entry);
    static QString encode(bool value);
    static constexpr const char* typeName = "bool";
};

template <>
struct SettingsCodec<int> {
    static std::optional<int> decode(const QVariant& entry);
    static QString encode(int value);
    static constexpr const char* typeName = "integer";
};

template <>
struct SettingsCodec<float> {
    static std::optional<float> decode(const QVariant& entry);
    static QString encode(float value);
    static constexpr const char* typeName = "number";
};

template <>
struct SettingsCodec<double> {
    static std::optional<double> decode(const QVariant& entry);
    static QString encode(double value);
    static constexpr const char* typeName = "number";
};

template <>
struct SettingsCodec<QString> {
    static std::optional<QString> decode(const QVariant& entry);
    static QString encode(const QString& value);
    static constexpr const char* typeName = "text";
};

template <>
struct SettingsCodec<std::optional<QUuid>> {
    static std::optional<std::optional<QUuid>> decode(const QVariant& entry);
    /// Text of a present UUID; an absent one has no text (the entry is removed instead).
    static QString encode(const std::optional<QUuid>& value);
    static constexpr const char* typeName = "UUID";
};

} // namespace host::settings
