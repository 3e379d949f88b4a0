#pragma once

#include "models/analyze/AnalyzeModel.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QUrl>
#include <cstdint>
#include <optional>
#include <vector>

namespace tavrel {

/// The entries of an `AnalyzeModel` as the rows of a table. While figures come in, rows move and change; they
/// begin anew only with another folder.
class AnalyzeRows : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(tavrel::AnalyzeModel* source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(Column sortColumn READ sortColumn NOTIFY sortChanged)
    Q_PROPERTY(bool ascending READ isAscending NOTIFY sortChanged)

  public:
    enum class Role {
        name = Qt::UserRole,
        url,
        sizeText,
        filesText,
        share,  // of the total, 0 to 1
        percentText,
        colorIndex,  // among the coloured arcs; -1 for none
        isFolder,
        measured,
        selected,
        removable,
        reason,  // why it is not
        lit,
        folderPath,  // the folder that it lies in, for reading
    };
    Q_ENUM(Role)

    /// Size is the model's own order.
    enum class Column { Size, Name, Files };
    Q_ENUM(Column)

    explicit AnalyzeRows(QObject* parent = nullptr);
    ~AnalyzeRows() override;

    [[nodiscard]] AnalyzeModel* source() const { return source_; }
    void setSource(AnalyzeModel* source);
    [[nodiscard]] Column sortColumn() const { return column_; }
    [[nodiscard]] bool isAscending() const { return ascending_; }
    /// Names begin with the first, figures with the largest. A second time turns the order round.
    Q_INVOKABLE void sortBy(Column column);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] int count() const { return rowCount(); }

    /// The entry of a row; nullptr where there is none.
    [[nodiscard]] const AnalyzeEntry* entry(int row) const;
    /// What names the entry of a row while rows change places; empty where there is none.
    [[nodiscard]] Q_INVOKABLE QUrl url(int row) const;
    /// Where an entry stands now; -1 when it is gone.
    [[nodiscard]] Q_INVOKABLE int rowOf(const QUrl& url) const;
    /// The first row from `from` on, and then from the beginning, whose name begins so; -1 for none.
    [[nodiscard]] Q_INVOKABLE int indexOfName(const QString& prefix, int from = 0) const;

    // These take the entry that a person pointed at: another may stand in its row by now.
    Q_INVOKABLE void open(const QUrl& url);
    Q_INVOKABLE void toggle(const QUrl& url);
    Q_INVOKABLE void trash(const QUrl& url);
    /// Lets table and chart light up together.
    Q_INVOKABLE void enter(const QUrl& url);
    Q_INVOKABLE void leave(const QUrl& url);

  Q_SIGNALS:
    void sourceChanged();
    void countChanged();
    void sortChanged();

  private:
    using Id = AnalyzeModel::Id;
    using Ids = std::vector<Id>;

    [[nodiscard]] QVariant value(Id id, Role role) const;
    [[nodiscard]] std::optional<Id> idOf(const QUrl& url) const;
    [[nodiscard]] const AnalyzeEntry* entry(const QUrl& url) const;
    [[nodiscard]] Ids wanted() const;
    void reset();
    void update();
    void removeGone();
    void reorder(Ids wanted);
    void changed(const QList<Role>& roles);
    void updateHighlight();
    void changedAt(Id id, Role role);

    QPointer<AnalyzeModel> source_;
    std::uint64_t contentNumber_ = 0;
    Ids rows_;
    std::optional<Id> lit_;
    Column column_ = Column::Size;
    bool ascending_ = false;
};

}  // namespace tavrel
