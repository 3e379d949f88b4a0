#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <qqmlregistration.h>

namespace tavrel {

/// What the desktop does for a screen: reveal a file, keep a text on the clipboard, open a page.
class Desktop : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

  public:
    using QObject::QObject;

    /// Shows the file in the file manager, over org.freedesktop.FileManager1; where no bus or no file manager
    /// answers, opens the folder that it lies in. Returns at once.
    Q_INVOKABLE static void reveal(const QString& path);
    Q_INVOKABLE static void revealFile(const QUrl& file);
    /// Opens the folder in the file manager.
    Q_INVOKABLE static void openFolder(const QString& path);
    Q_INVOKABLE static void copy(const QString& text);
    /// The page of the system's settings where Full Disk Access is given.
    Q_INVOKABLE static void openFullDiskAccessSettings();
};

}  // namespace tavrel
