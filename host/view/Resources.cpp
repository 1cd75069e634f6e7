#include "host/view/Resources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace host::view {

QString Resources::directory() {
    return directoryFor(QCoreApplication::applicationDirPath());
}

QString Resources::directoryFor(const QString& executableDirectory) {
    const QDir dir(executableDirectory);
    const QString candidates[] = {
        dir.filePath(QStringLiteral("../share/nivalis")),
        dir.filePath(QStringLiteral("../resources")),
        dir.filePath(QStringLiteral("resources")),
    };
    for (const QString& candidate : candidates) {
        if (QFileInfo(candidate).isDir()) {
            return QDir::cleanPath(candidate);
        }
    }
    return QDir::cleanPath(candidates[0]);
}

} // namespace host::view
