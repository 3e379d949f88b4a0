#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

namespace tavrel {

/// Our names for symbols, and the characters that stand for them in the icon font.
class Symbols : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

  public:
    using QObject::QObject;

    /// The character of the font "Material Design Icons" for a symbol; a question mark for an unknown name.
    Q_INVOKABLE [[nodiscard]] static QString glyph(const QString& name);
};

}  // namespace tavrel
