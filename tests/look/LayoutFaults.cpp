#include "look/LayoutFaults.h"

#include "support/Words.h"
#include "templates/CardLabel.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/WrappedLabel.h"
#include "toolkit/grid/fpSpread.h"

#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QTextDocument>

#include <cmath>
#include <optional>

namespace tsms::test {

namespace {

constexpr int ButtonMargin = 4;           // least room between a caption and the edge of its button
constexpr QSize LargestWindow(1024, 768); // however large the desk is

/// The room that words need, and the room that they have.
struct Room
{
    QSize needed;
    QSize given;

    bool Suffices() const { return needed.width() <= given.width() && needed.height() <= given.height(); }
};

QSize WordsSize(const QFontMetrics& metrics, const QString& words)
{
    return metrics.size(0, words); // with its line breaks
}

QSize CaptionRoom(const QWidget& control)
{
    return control.size() - QSize(2 * ButtonMargin, ButtonMargin);
}

QFontMetrics BoldMetrics(const QWidget& control)
{
    QFont bold = control.font();
    bold.setBold(true);
    return QFontMetrics(bold);
}

/// Of words that are wrapped, also inside a word that is wider than its line.
QSize WrappedSize(const QLabel& label, int width)
{
    QTextDocument words;
    QTextOption anywhere;
    anywhere.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    words.setDocumentMargin(0);
    words.setDefaultFont(label.font());
    words.setDefaultTextOption(anywhere);
    words.setPlainText(label.text());
    words.setTextWidth(width);
    return {1, static_cast<int>(std::ceil(words.size().height()))};
}

/// Whether ink stands in the last column, which drawn words leave free.
bool IsCutAtTheRight(const QLabel& label)
{
    const QImage picture = const_cast<QLabel&>(label).grab().toImage();
    const int last = picture.width() - 1;
    for (int y = 1; y < picture.height(); ++y)
        if (picture.pixel(last, y) != picture.pixel(last, 0))
            return true;
    return false;
}

/// Of the tallest letter and the deepest one: the blank line about them is no loss.
int LetterHeight(const QFontMetrics& metrics)
{
    return metrics.tightBoundingRect(u"강힣Hgjy(|"_q).height();
}

Room RoomOfLabel(const QLabel& label)
{
    if (dynamic_cast<const CardLabel*>(&label))
        return {};
    if (dynamic_cast<const WrappedLabel*>(&label))
        return {QSize(1, label.heightForWidth(label.width())), label.size()};
    if (label.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) // a path, which is shortened
        return {QSize(1, label.fontMetrics().height()), label.contentsRect().size()};
    if (label.objectName() == u"qt_msgbox_label"_q)
        return {IsCutAtTheRight(label) ? QSize(label.width() + 1, 1) : WrappedSize(label, label.width()),
                label.size()};
    return {WordsSize(label.fontMetrics(), label.text()), label.contentsRect().size()};
}

Room RoomOfPictureButton(const PictureButton& button)
{
    const QSize picture = button.sizeHint();
    if (button.focusPolicy() == Qt::NoFocus) // its words stand in the tool tip
        return {picture.boundedTo(QSize(26, 26)), button.size()};
    const int air = picture.width() - WordsSize(button.fontMetrics(), button.Words()).width();
    const bool boldAtTimes = button.objectName().startsWith(u"BtnToolbar");
    const QFontMetrics metrics = boldAtTimes ? BoldMetrics(button) : button.fontMetrics();
    return {QSize(air, 0) + WordsSize(metrics, button.Words()), button.size()};
}

Room RoomOfList(const ComboBox& list)
{
    QStyleOptionComboBox option;
    option.initFrom(&list);
    option.editable = false;
    const QRect field =
        list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list);
    const bool namesOfAnyLength = list.sizeAdjustPolicy() != QComboBox::AdjustToContents;
    const QSize words = WordsSize(list.fontMetrics(), list.Text());
    return {namesOfAnyLength ? QSize(1, words.height()) : words, field.size()};
}

std::optional<Room> RoomOf(const QWidget& control)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return label->text().isEmpty() ? std::nullopt : std::optional(RoomOfLabel(*label));
    if (const auto* button = dynamic_cast<const PushButton*>(&control))
        return Room{WordsSize(button->fontMetrics(), button->Caption()), CaptionRoom(*button)};
    if (const auto* button = dynamic_cast<const PictureButton*>(&control))
        return RoomOfPictureButton(*button);
    if (qobject_cast<const QAbstractButton*>(&control) &&
        !static_cast<const QAbstractButton&>(control).text().isEmpty())
        return Room{control.sizeHint(), control.size()};
    if (const auto* list = dynamic_cast<const ComboBox*>(&control))
        return RoomOfList(*list);
    if (dynamic_cast<const DatePicker*>(&control)) // its date and its arrow
        return Room{control.sizeHint(), control.size()};
    if (const auto* line = qobject_cast<const QLineEdit*>(&control)) // a longer text can be walked through
        return Room{QSize(1, line->fontMetrics().height()), line->contentsRect().size()};
    return std::nullopt;
}

/// Controls of the toolkit have children of their own, which are no affair of a layout.
bool IsWhole(const QWidget& widget)
{
    return widget.inherits("QAbstractScrollArea") || widget.inherits("QComboBox") ||
           widget.inherits("QAbstractSpinBox") || widget.inherits("QAbstractButton") ||
           widget.inherits("QLabel") || widget.inherits("QLineEdit");
}

QList<QWidget*> ChildrenOnView(const QWidget& parent)
{
    QList<QWidget*> children;
    for (QWidget* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!child->isWindow() && child->isVisibleTo(&parent))
            children += child;
    return children;
}

QString NameOf(const QWidget& widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

QString Told(QSize size)
{
    return u"%1x%2"_q.arg(size.width()).arg(size.height());
}

/// The titles of a grid, the captions of its buttons and the height of its rows. Other texts of cells may be
/// of any length.
class GridFaults
{
public:
    explicit GridFaults(const fpSpread& grid) : grid_(grid)
    {
        LookAtTitles(*grid.horizontalHeader());
        LookAtTitles(*grid.verticalHeader());
        for (int col = 1; col <= grid.Cells().MaxCols(); ++col)
            if (grid.Cells().MaxRows() > 0 && !grid.ColHidden(col))
                LookAtCell(col);
    }

    QStringList faults;
    int looked = 0;

private:
    void Judge(const QString& place, const Room& room)
    {
        ++looked;
        if (!room.Suffices())
            faults += u"%1, %2 needs %3 and has %4"_q.arg(NameOf(grid_), place, Told(room.needed),
                                                          Told(room.given));
    }

    void LookAtTitles(const QHeaderView& titles)
    {
        if (!titles.isVisibleTo(&grid_))
            return;
        const bool columns = titles.orientation() == Qt::Horizontal;
        for (int i = 0; i < titles.count(); ++i) {
            const QString title = titles.model()->headerData(i, titles.orientation()).toString();
            if (titles.isSectionHidden(i) || title.isEmpty())
                continue;
            const int size = titles.sectionSize(i);
            const QSize given = columns ? QSize(size, titles.height()) : QSize(titles.width(), size);
            const QSize needed(titles.fontMetrics().horizontalAdvance(title),
                               LetterHeight(titles.fontMetrics()));
            Judge(u"title "_q + title, {needed, given - QSize(3, 1)}); // less its lines
        }
    }

    void LookAtCell(int col)
    {
        const QFontMetrics metrics = grid_.fontMetrics();
        const bool isButton = grid_.Cells().Type(col) == SpreadModel::CellType::Button;
        const int words = isButton ? metrics.horizontalAdvance(grid_.Cells().Text(col, 1)) : 1;
        const QSize given(grid_.columnWidth(col - 1), grid_.verticalHeader()->defaultSectionSize());
        Judge(u"column %1"_q.arg(col), {QSize(words, LetterHeight(metrics)), given - QSize(2, 1)});
    }

    const fpSpread& grid_;
};

} // namespace

LayoutFaults::LayoutFaults(const QWidget& window)
{
    if (window.isWindow())
        LookAtSize(window);
    Look(window);
}

void LayoutFaults::LookAtSize(const QWidget& window)
{
    const QRect desk = window.screen()->availableGeometry();
    if (!desk.contains(window.frameGeometry()))
        faults += u"%1 is not whole on the desk"_q.arg(NameOf(window));
    if (window.width() > LargestWindow.width() || window.height() > LargestWindow.height())
        faults += u"%1 is %2"_q.arg(NameOf(window), Told(window.size()));
}

void LayoutFaults::Look(const QWidget& widget)
{
    LookAtWords(widget);
    if (IsWhole(widget))
        return;
    const QList<QWidget*> children = ChildrenOnView(widget);
    for (const QWidget* child : children) {
        LookAtPlace(widget, *child, children);
        Look(*child);
    }
}

void LayoutFaults::LookAtWords(const QWidget& widget)
{
    if (const auto* grid = dynamic_cast<const fpSpread*>(&widget)) {
        const GridFaults found(*grid);
        faults += found.faults;
        looked += found.looked;
        return;
    }
    const std::optional<Room> room = RoomOf(widget);
    if (!room || room->needed.isEmpty())
        return;
    ++looked;
    if (!room->Suffices())
        faults += u"%1 needs %2 and has %3"_q.arg(NameOf(widget), Told(room->needed), Told(room->given));
}

void LayoutFaults::LookAtPlace(const QWidget& parent, const QWidget& child, const QList<QWidget*>& siblings)
{
    if (!parent.rect().contains(child.geometry()))
        faults += u"%1 sticks out of %2"_q.arg(NameOf(child), NameOf(parent));
    if (dynamic_cast<const PopupPanel*>(&child) || child.objectName() == u"PlVeil")
        return; // opens over the others, or dims them
    for (const QWidget* other : siblings) {
        if (other == &child)
            return; // the rest of the pairs comes with the others
        if (!dynamic_cast<const PopupPanel*>(other) && other->geometry().intersects(child.geometry()))
            faults += u"%1 lies over %2"_q.arg(NameOf(child), NameOf(*other));
    }
}

} // namespace tsms::test
