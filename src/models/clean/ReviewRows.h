#pragma once

#include "models/clean/CleanListModel.h"

#include <QAbstractListModel>
#include <QPointer>
#include <set>
#include <string>
#include <vector>

namespace tavrel {

/// What the review panel lists, as flat rows so that a long list costs only what is in sight: a head for each
/// category of a `CleanListModel`, and below an expanded head its items.
class ReviewRows : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(tavrel::CleanListModel* source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

  public:
    enum class Role {
        isHead = Qt::UserRole,
        title,  // of the category, or the item's name
        summary,
        symbol,
        countText,
        selectedText,
        size,
        mark,
        expanded,
        review,
        permanent,
        admin,
        isLast  // of its card
    };
    Q_ENUM(Role)

    /// How much of what a checkbox stands for is selected.
    enum class Mark { Off, Mixed, On };
    Q_ENUM(Mark)

    explicit ReviewRows(QObject* parent = nullptr);
    ~ReviewRows() override;

    [[nodiscard]] CleanListModel* source() const { return source_; }
    void setSource(CleanListModel* source);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] int count() const { return rowCount(); }

    /// The checkbox of a row: of one item, or of a whole category.
    Q_INVOKABLE void toggle(int row);
    /// Shows or hides the items below the head at `row`.
    Q_INVOKABLE void toggleExpanded(int row);
    /// The path of the item at `row`, as it is put on the clipboard; empty for a head and for what has none.
    Q_INVOKABLE [[nodiscard]] QString path(int row) const;

  Q_SIGNALS:
    void sourceChanged();
    void countChanged();

  private:
    /// A row of the list: the head of a group when `item` is `head`.
    struct Row {
        static constexpr std::size_t head = static_cast<std::size_t>(-1);
        std::size_t group = 0;
        std::size_t item = head;  // position in the source's items
        [[nodiscard]] bool isHead() const { return item == head; }
    };
    struct Tally {
        std::size_t selected = 0;
        std::int64_t selectedSize = 0;
    };

    [[nodiscard]] QVariant valueOfHead(const Row& row, Role role) const;
    [[nodiscard]] QVariant valueOfItem(const Row& row, Role role) const;
    [[nodiscard]] const CleanListModel::Group& groupOf(const Row& row) const;
    [[nodiscard]] Mark markOf(const Row& row) const;
    [[nodiscard]] bool isExpanded(const Row& row) const;
    void rebuild();
    void countSelection();
    void selectionChanged();

    QPointer<CleanListModel> source_;
    std::vector<Row> rows_;
    std::vector<Tally> tallies_;  // one a group
    std::set<CleanCategory> expanded_;
};

}  // namespace tavrel
