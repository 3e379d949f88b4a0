#include "screens/controls/Desktop.h"

#include <QClipboard>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QGuiApplication>

namespace tavrel {

namespace {

void openFolderOf(const QUrl& file) {
    QDesktopServices::openUrl(file.adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash));
}

}  // namespace

void Desktop::reveal(const QString& path) {
    revealFile(QUrl::fromLocalFile(path));
}

void Desktop::revealFile(const QUrl& file) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return openFolderOf(file);
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{file.toString(QUrl::FullyEncoded)} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), qGuiApp);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, file] {
        if (watcher->isError()) openFolderOf(file);
        watcher->deleteLater();
    });
}

void Desktop::openFolder(const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void Desktop::copy(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

void Desktop::openFullDiskAccessSettings() {
    QDesktopServices::openUrl(
        QUrl(QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles")));
}

}  // namespace tavrel
