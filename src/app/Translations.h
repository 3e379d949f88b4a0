#pragma once

#include <QTranslator>

namespace tavrel {

/// Gives the texts of screens the words of the logic's own lookup, so that there is one catalogue and one
/// language for both.
class Translations final : public QTranslator {
    Q_OBJECT

  public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* disambiguation,
                                    int n) const override;
};

}  // namespace tavrel
