#include "host/settings/SettingsDocument.h"

#include <algorithm>

namespace host::settings {

namespace {

constexpr std::string_view BLANKS = " \t\r";

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(BLANKS);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

} // namespace

SettingsDocument::SettingsDocument(std::string_view text) {
    bool general = true;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            end = text.size();
        } else if (end + 1 == text.size()) {
            endsWithNewline_ = true;
        }
        Line line{std::string(text.substr(start, end - start)), {}};
        const std::string_view content = trimmed(line.text);
        if (content.starts_with('[')) {
            general = content == "[General]";
        } else if (general && !content.empty() && !content.starts_with('#') && !content.starts_with(';')) {
            const std::size_t equals = content.find('=');
            if (equals != std::string_view::npos) {
                line.key = std::string(trimmed(content.substr(0, equals)));
            }
        }
        lines_.push_back(std::move(line));
        start = end + 1;
    }
}

std::string SettingsDocument::text() const {
    std::string result;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        result += lines_[i].text;
        if (i + 1 < lines_.size() || endsWithNewline_) {
            result += '\n';
        }
    }
    return result;
}

std::optional<std::string> SettingsDocument::value(std::string_view key) const {
    for (auto line = lines_.rbegin(); line != lines_.rend(); ++line) {
        if (!line->key.empty() && line->key == key) {
            const std::string_view text = line->text;
            return decodeValue(text.substr(text.find('=') + 1));
        }
    }
    return std::nullopt;
}

std::vector<std::string> SettingsDocument::keys() const {
    std::vector<std::string> result;
    for (const Line& line : lines_) {
        if (!line.key.empty() && std::find(result.begin(), result.end(), line.key) == result.end()) {
            result.push_back(line.key);
        }
    }
    return result;
}

void SettingsDocument::set(std::string_view key, std::string_view value) {
    Line line{entryLine(key, value), std::string(key)};
    endsWithNewline_ = true;
    for (auto existing = lines_.rbegin(); existing != lines_.rend(); ++existing) {
        if (existing->key == key) {
            *existing = std::move(line);
            return;
        }
    }
    // After the last entry, else before the first section header (or at the end).
    std::size_t at = lines_.size();
    bool found = false;
    for (std::size_t i = lines_.size(); i-- > 0;) {
        if (!lines_[i].key.empty()) {
            at = i + 1;
            found = true;
            break;
        }
    }
    if (!found) {
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            const std::string_view content = trimmed(lines_[i].text);
            if (content == "[General]") {
                at = i + 1;
                break;
            }
            if (content.starts_with('[')) {
                at = i;
                break;
            }
        }
    }
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}

bool SettingsDocument::remove(std::string_view key) {
    const auto removed = std::erase_if(lines_, [&](const Line& line) { return !line.key.empty() && line.key == key; });
    return removed > 0;
}

std::string SettingsDocument::entryLine(std::string_view key, std::string_view value) {
    const bool bare = std::none_of(value.begin(), value.end(), isControl) && !value.starts_with('"') &&
                      trimmed(value).size() == value.size();
    std::string line(key);
    line += '=';
    if (bare) {
        line += value;
        return line;
    }
    static constexpr char HEX[] = "0123456789ABCDEF";
    line += '"';
    for (const char c : value) {
        switch (c) {
        case '\\':
            line += "\\\\";
            break;
        case '"':
            line += "\\\"";
            break;
        case '\n':
            line += "\\n";
            break;
        case '\r':
            line += "\\r";
            break;
        case '\t':
            line += "\\t";
            break;
        default:
            if (isControl(c)) {
                const auto byte = static_cast<unsigned char>(c);
                line += "\\x";
                line += HEX[byte >> 4];
                line += HEX[byte & 0xF];
            } else {
                line += c;
            }
        }
    }
    line += '"';
    return line;
}

std::string SettingsDocument::decodeValue(std::string_view raw) {
    const std::string_view text = trimmed(raw);
    if (!text.starts_with('"')) {
        return std::string(text);
    }
    std::string value;
    for (std::size_t i = 1; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"') {
            return value;
        }
        if (c != '\\' || i + 1 == text.size()) {
            value += c;
            continue;
        }
        const char escaped = text[++i];
        switch (escaped) {
        case 'n':
            value += '\n';
            break;
        case 'r':
            value += '\r';
            break;
        case 't':
            value += '\t';
            break;
        case 'x':
            if (i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 && hexDigit(text[i + 2]) >= 0) {
                value += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
                i += 2;
            } else {
                value += "\\x";
            }
            break;
        case '\\':
        case '"':
            value += escaped;
            break;
        default:
            value += '\\';
            value += escaped;
        }
    }
    // A quote left open: the line's text as it stands.
    return std::string(text);
}

} // namespace host::settings
