#include "screens/scene/SceneCanvas.h"

#include "screens/scene/SpriteBatches.h"
#include "screens/scene/Sprites.h"

#include <QQuickWindow>
#include <QSGRendererInterface>

namespace tavrel {

SceneCanvas* sceneCanvas(QQuickWindow& window) {
    const bool painted = window.rendererInterface()->graphicsApi() == QSGRendererInterface::Software;
    if (painted) return new Sprites(window);
    return new SpriteBatches(window);
}

}  // namespace tavrel
