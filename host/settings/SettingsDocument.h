#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host::settings {

/// The text of the settings file, held line by line so that a change rewrites only the line of
/// its entry: comments, blank lines, other sections, entries this program does not know and
/// their order all stay byte for byte as the user left them.
///
/// The format is the INI dialect of the file's earlier versions, read without its losses:
/// - `key=value` lines before any section header, or under `[General]`, are the entries; the
///   last entry of a key wins. Lines under other sections are kept and not read.
/// - Lines starting with `#` or `;` are comments; a `;` or `#` inside a value is part of it.
/// - A value is the text after the first `=`, without the spaces around it. A value starting
///   with `"` is quoted: it ends at the next unescaped `"`, and `\\`, `\"`, `\n`, `\r`, `\t`
///   and `\xHH` stand for one character each. A quote left open is no quote: the value is the
///   rest of its line as it stands, and never reaches into the next line.
/// - Values are written bare when that reads back the same, quoted otherwise (spaces at an
///   end, a leading quote, control characters), so that every text round-trips exactly.
///
/// Plain C++ on bytes (UTF-8 passes through untouched), so that it can be fuzzed on its own.
class SettingsDocument {
public:
    /// Reads `text`. Never fails: a line that is no entry is kept as it stands.
    explicit SettingsDocument(std::string_view text = {});

    /// The file's text: what was read, with the changes made since.
    std::string text() const;

    /// The value of the entry `key`, or nothing when there is none.
    std::optional<std::string> value(std::string_view key) const;
    /// Names of the entries, each once, in the order of their first appearance.
    std::vector<std::string> keys() const;

    /// Sets the entry `key` to `value`, in place of its last line, or as a new line after the
    /// last entry (at the top of the file when there is none).
    void set(std::string_view key, std::string_view value);
    /// Removes every line of the entry `key`. Returns whether there was one.
    bool remove(std::string_view key);

    /// The line `key=value` that reads back as `value`.
    static std::string entryLine(std::string_view key, std::string_view value);
    /// The value that the text after an entry's `=` stands for.
    static std::string decodeValue(std::string_view raw);

private:
    struct Line {
        std::string text;
        /// The entry's name; empty for a line that is no entry of the general section.
        std::string key;
    };

    std::vector<Line> lines_;
    bool endsWithNewline_ = false;
};

} // namespace host::settings
