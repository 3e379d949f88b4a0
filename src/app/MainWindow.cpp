#include "app/MainWindow.h"

#include "app/Translations.h"
#include "models/program/AppState.h"

#include <QQuickWindow>
#include <QUrl>
#include <QVariantMap>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Tavrel_AnalyzePlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_CleanPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_GraphsPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_HistoryPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_MainPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_ModelsPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_ScenePlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_SettingsPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_StatusPlugin)

namespace tavrel {

MainWindow::MainWindow(AppState& state) : state_(state) {
    engine_.addImportPath(QStringLiteral(":/qt/qml"));
    engine_.setInitialProperties({{QStringLiteral("app"), QVariant::fromValue(&state_)}});
}

MainWindow::~MainWindow() = default;

QQuickWindow* MainWindow::show() {
    if (engine_.rootObjects().isEmpty()) {
        engine_.load(QUrl(QStringLiteral("qrc:/qt/qml/Tavrel/Main/Main.qml")));
    }
    if (engine_.rootObjects().isEmpty()) return nullptr;
    auto* window = qobject_cast<QQuickWindow*>(engine_.rootObjects().constFirst());
    if (window != nullptr) window->show();
    return window;
}

}  // namespace tavrel
