#include "app/Graphics.h"

#include <QDir>
#include <QQuickWindow>
#include <QtGlobal>

namespace tavrel::Graphics {

namespace {

#ifdef Q_OS_LINUX
bool hasDevice() {
    return !QDir(QStringLiteral("/dev/dri")).entryList({QStringLiteral("renderD*")}, QDir::System).isEmpty();
}
#else
bool hasDevice() {
    return true;
}
#endif

bool isAskedFor() {
    for (const char* name : {"QT_QUICK_BACKEND", "QSG_RHI_BACKEND", "QMLSCENE_DEVICE"}) {
        if (qEnvironmentVariableIsSet(name)) return true;
    }
    return false;
}

}  // namespace

void choose() {
    if (!isAskedFor() && !hasDevice()) QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

}  // namespace tavrel::Graphics
