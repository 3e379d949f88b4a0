#include "screens/controls/Symbols.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrel {

namespace {

struct Row {
    std::string_view name;
    char16_t character;  // in version 1.4 of the font
};

// clang-format off
constexpr std::array rows = {
    Row{"app.badge",                               0xF614},
    Row{"archivebox.fill",                         0xF5C4},
    Row{"arrow.down.circle",                       0xF048},
    Row{"arrow.up.arrow.down",                     0xF4E2},
    Row{"battery.75percent",                       0xF080},
    Row{"bubble.left.and.text.bubble.right",       0xF28C},
    Row{"chart.pie",                               0xF126},
    Row{"checkmark",                               0xF12C},
    Row{"chevron.down",                            0xF140},
    Row{"chevron.left.forwardslash.chevron.right", 0xF174},
    Row{"clock.arrow.circlepath",                  0xF2DA},
    Row{"cpu",                                     0xF61A},
    Row{"doc",                                     0xF224},
    Row{"doc.fill",                                0xF214},
    Row{"doc.richtext.fill",                       0xF219},
    Row{"doc.text.magnifyingglass",                0xF219},
    Row{"doc.zipper",                              0xF5C4},
    Row{"envelope",                                0xF1F0},
    Row{"film.fill",                               0xF230},
    Row{"folder",                                  0xF256},
    Row{"folder.badge.gearshape",                  0xF253},
    Row{"folder.fill",                             0xF24B},
    Row{"gearshape",                               0xF493},
    Row{"globe",                                   0xF59F},
    Row{"hammer",                                  0xF5B7},
    Row{"internaldrive",                           0xF2CA},
    Row{"iphone",                                  0xF120},
    Row{"lock.shield",                             0xF498},
    Row{"memorychip",                              0xF35B},
    Row{"minus",                                   0xF374},
    Row{"music.note",                              0xF387},
    Row{"opticaldiscdrive",                        0xF5EE},
    Row{"photo.fill",                              0xF21F},
    Row{"plus",                                    0xF415},
    Row{"puzzlepiece.extension",                   0xF431},
    Row{"puzzlepiece.fill",                        0xF431},
    Row{"rectangle.3.group",                       0xF379},
    Row{"shippingbox",                             0xF3D6},
    Row{"sparkles",                                0xF068},
    Row{"square.grid.2x2",                         0xF03B},
    Row{"square.grid.3x3",                         0xF2C1},
    Row{"terminal",                                0xF18D},
    Row{"thermometer.medium",                      0xF50F},
    Row{"trash",                                   0xF1C0},
    Row{"waveform.path.ecg",                       0xF5F6},
    Row{"wrench.and.screwdriver",                  0xF5B7},
    Row{"xmark",                                   0xF156},
};
// clang-format on

static_assert(std::is_sorted(rows.begin(), rows.end(),
                             [](const Row& a, const Row& b) { return a.name < b.name; }));

}  // namespace

QString Symbols::glyph(const QString& name) {
    const std::string wanted = name.toStdString();
    const auto* row =
        std::lower_bound(rows.begin(), rows.end(), wanted,
                         [](const Row& candidate, const std::string& text) { return candidate.name < text; });
    if (row == rows.end() || row->name != wanted) return QStringLiteral("?");
    return QString(QChar(row->character));
}

}  // namespace tavrel
