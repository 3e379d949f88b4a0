#include "app/Translations.h"

#include "core/Text.h"

#include <string>

namespace tavrel {

QString Translations::translate(const char*, Text::English sourceText, const char*, int) const {
    const std::string words = Text::localized(sourceText);
    return words == sourceText ? QString() : QString::fromStdString(words);
}

}  // namespace tavrel
