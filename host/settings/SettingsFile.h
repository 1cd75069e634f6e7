#pragma once

#include <QString>

#include <functional>
#include <string>

#include "host/settings/SettingsDocument.h"

namespace host::settings {

/// The settings file on disk: reads that never block or take long, and writes that either
/// replace the whole file or leave it as it was, and say which.
///
/// Only a regular file (or a link to one) is read: a directory, FIFO or device in its place is
/// reported, never opened for reading, so never waited on. A file over MAX_SIZE is refused
/// unread. A missing file, or a missing folder on the way to it, reads as empty.
///
/// A write takes an exclusive lock on the file's folder, reads the file afresh, applies the
/// change, writes the result to a temporary file beside the real one, flushes it to disk and
/// renames it over the real one (through a link, over the link's target), then reads it back
/// to check it. Any step that fails leaves the old file untouched and gives the reason.
class SettingsFile {
public:
    /// The largest file read: 1 MiB, far beyond any real settings file.
    static constexpr long long MAX_SIZE = 1024 * 1024;

    /// What a read found.
    struct Contents {
        /// The file's bytes; empty for a missing file and after an error.
        std::string text;
        /// Empty when the read succeeded, else a full message: "Cannot read settings file
        /// <path>: <reason>".
        QString error;
    };

    /// The file at `path`; nothing is touched here.
    explicit SettingsFile(QString path);

    const QString& path() const { return path_; }

    /// Reads the file.
    Contents read() const;

    /// Applies `change` to the file's current contents and saves the result. Returns an empty
    /// text on success, else the message "Cannot save settings to <path>: <reason>" (or the
    /// read's message when the current file cannot be read, which is then never replaced).
    /// `written` receives the text on disk after a success.
    QString update(const std::function<void(SettingsDocument&)>& change, std::string& written) const;

private:
    QString path_;
};

} // namespace host::settings
