#include "bench/ProgramDesk.h"
#include "bench/recipients/Steps.h"

#include "runtime/Numbers.h"

#include <QAbstractTableModel>
#include <QClipboard>
#include <QHeaderView>
#include <QTableView>

#include <array>

namespace tsms::bench {

namespace {

constexpr int FirstRows = 20;
constexpr int Columns = 4; // number, name, phone, button

class Texts final : public QAbstractTableModel
{
public:
    using Row = std::array<QString, Columns>;

    int rowCount(const QModelIndex&) const override { return static_cast<int>(rows_.size()); }
    int columnCount(const QModelIndex&) const override { return Columns; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    }

    void Set(std::vector<Row> rows)
    {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }

    /// Numbers the rows on view anew behind one that has been hidden.
    void NumberFrom(const QTableView& view, int first, int number)
    {
        for (std::size_t row = static_cast<std::size_t>(first); row < rows_.size(); ++row)
            if (!view.isRowHidden(static_cast<int>(row)))
                rows_[row][0] = TwoDigits(number++);
        Q_EMIT dataChanged(index(first, 0), index(rowCount({}) - 1, 0));
    }

private:
    std::vector<Row> rows_;
};

std::vector<Texts::Row> NumberedRows(int count)
{
    std::vector<Texts::Row> rows;
    for (int row = 1; row <= count; ++row)
        rows.push_back({TwoDigits(row), QString(), QString(), QStringLiteral("x")});
    return rows;
}

void Paste(Texts& texts)
{
    const QString text = QApplication::clipboard()->text();
    std::vector<Texts::Row> rows = NumberedRows(LargestSize);
    std::size_t row = 0;
    for (const QStringView line : QStringView(text).split(u'\n', Qt::SkipEmptyParts)) {
        const QList<QStringView> values = line.split(u'\t');
        rows[row][1] = values[0].toString();
        rows[row++][2] = values[1].toString();
    }
    texts.Set(std::move(rows));
}

} // namespace

QString PastedText()
{
    QString text;
    for (int row = 1; row <= LargestSize; ++row)
        text += QStringLiteral("홍길동\t010-%1-%2\n")
                    .arg(row / 10'000, 4, 10, QLatin1Char('0'))
                    .arg(row % 10'000, 4, 10, QLatin1Char('0'));
    return text;
}

std::vector<double> DayInBareList()
{
    ThemedApplication application;
    Texts texts;
    texts.Set(NumberedRows(FirstRows));
    QTableView view;
    view.setModel(&texts);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(18);
    view.resize(260, 18 * 10);
    view.show();
    QApplication::clipboard()->setText(PastedText());
    Paint();

    std::vector<double> times;
    times.push_back(TimeOf([&] { Paste(texts); }));
    const int middle = LargestSize / 2;
    for (int removal = 0; removal < Removals; ++removal) {
        const int row = middle - 1 + removal;
        view.setCurrentIndex(texts.index(row, 3));
        Paint();
        times.push_back(TimeOf([&] {
            view.hideRow(row);
            texts.NumberFrom(view, row, middle);
        }));
    }
    for (int walk = 0; walk < Walks; ++walk)
        times.push_back(
            TimeOf([&] { view.setCurrentIndex(texts.index(middle + Removals + walk / 2, 1 + walk % 2)); }));
    times.push_back(TimeOf([&] { texts.Set(NumberedRows(FirstRows)); }));
    return times;
}

} // namespace tsms::bench
