#include "look/SpeechFaults.h"

#include "support/Words.h"
#include "templates/CardBody.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/windows/Form.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <optional>

namespace tsms::test {

namespace {

/// What a control looks like to a person who sees it.
std::optional<QAccessible::Role> RoleOf(const QObject* control)
{
    if (const auto* button = qobject_cast<const PictureButton*>(control))
        return button->LookOf() == PictureButton::Look::Sign ? QAccessible::Graphic : QAccessible::Button;
    if (qobject_cast<const CardBody*>(control) || qobject_cast<const QPushButton*>(control))
        return QAccessible::Button;
    if (qobject_cast<const QCheckBox*>(control))
        return QAccessible::CheckBox;
    if (qobject_cast<const QRadioButton*>(control))
        return QAccessible::RadioButton;
    if (qobject_cast<const QLineEdit*>(control) || qobject_cast<const QPlainTextEdit*>(control))
        return QAccessible::EditableText;
    if (qobject_cast<const QComboBox*>(control))
        return QAccessible::ComboBox;
    if (qobject_cast<const fpSpread*>(control))
        return QAccessible::Table;
    if (qobject_cast<const QProgressBar*>(control))
        return QAccessible::ProgressBar;
    if (const auto* label = qobject_cast<const QLabel*>(control))
        return label->pixmap().isNull() ? QAccessible::StaticText : QAccessible::Graphic;
    if (const auto* form = qobject_cast<const Form*>(control))
        return form->windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
    if (qobject_cast<const Panel*>(control))
        return QAccessible::Grouping;
    return std::nullopt;
}

/// Whether a person acts on it or reads a value from it.
bool IsUsed(const QObject* control)
{
    const std::optional<QAccessible::Role> role = RoleOf(control);
    static const QSet<QAccessible::Role> Surfaces{QAccessible::StaticText, QAccessible::Graphic,
                                                  QAccessible::Window, QAccessible::Dialog,
                                                  QAccessible::Grouping};
    return role && !Surfaces.contains(*role);
}

/// Controls whose parts are an affair of the platform.
bool IsWhole(const QObject* control)
{
    return IsUsed(control) || qobject_cast<const QLabel*>(control);
}

QString NameOf(QAccessibleInterface& told)
{
    return told.object() ? told.object()->objectName() : u"a part"_q;
}

QString WordsOf(QAccessibleInterface& told)
{
    return told.text(QAccessible::Name);
}

/// Its cells are alike and mean nothing but what stands in them.
bool HasMeaninglessColumns(const fpSpread& grid)
{
    return grid.objectName() == u"fpSpreadScDoc";
}

} // namespace

SpeechFaults::SpeechFaults(QWidget& window)
{
    programNames_ += window.objectName();
    for (const QObject* part : window.findChildren<QObject*>())
        programNames_ += part->objectName();
    programNames_ -= QString();
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&window);
    if (!told) {
        faults += u"nothing is told of "_q + window.objectName();
        return;
    }
    if (WordsOf(*told) != window.windowTitle())
        faults += u"the window is told of as "_q + WordsOf(*told);
    Look(*told);
    LookForSilentOnes(window);
}

void SpeechFaults::Look(QAccessibleInterface& told)
{
    if (told.state().invisible)
        return;
    told_ += told.object();
    LookAtControl(told);
    if (IsWhole(told.object()))
        return;
    for (int i = 0; i < told.childCount(); ++i)
        if (QAccessibleInterface* child = told.child(i))
            Look(*child);
}

void SpeechFaults::LookAtControl(QAccessibleInterface& told)
{
    const bool isUsed = IsUsed(told.object());
    looked += isUsed;
    LookAtWords(told, isUsed);
    LookAtRole(told);
    if (told.tableInterface())
        LookAtTitles(told);
}

void SpeechFaults::LookAtWords(QAccessibleInterface& told, bool isUsed)
{
    const QString words = WordsOf(told);
    const bool isText = told.role() == QAccessible::StaticText;
    if ((isUsed || isText) && words.trimmed().isEmpty())
        faults += NameOf(told) + u" has no words"_q;
    if (programNames_.contains(words))
        faults += NameOf(told) + u" is told of as "_q + words;
}

void SpeechFaults::LookAtRole(QAccessibleInterface& told)
{
    const std::optional<QAccessible::Role> role = RoleOf(told.object());
    if (role && told.role() != role)
        faults += u"%1 has the role %2"_q.arg(NameOf(told)).arg(told.role());
    const auto* line = qobject_cast<const QLineEdit*>(told.object());
    if (line && (line->echoMode() == QLineEdit::Password) != bool(told.state().passwordEdit))
        faults += NameOf(told) + u" is told wrongly to be a password or none"_q;
}

void SpeechFaults::LookAtTitles(QAccessibleInterface& told)
{
    const auto* grid = qobject_cast<const fpSpread*>(told.object());
    if (!grid || HasMeaninglessColumns(*grid))
        return;
    int place = 0;
    for (int col = 1; col <= grid->Cells().MaxCols(); ++col)
        if (!grid->ColHidden(col) && told.tableInterface()->columnDescription(place++).isEmpty())
            faults += u"column %1 of %2 has no title"_q.arg(col).arg(grid->objectName());
    if (told.tableInterface()->columnCount() != place)
        faults += u"hidden columns of %1 are told of"_q.arg(grid->objectName());
}

/// Each stop of the Tab key was met on the way through what is told.
void SpeechFaults::LookForSilentOnes(const QWidget& window)
{
    for (const QWidget* stop : window.findChildren<QWidget*>()) {
        const bool isPart = stop->parentWidget() && IsWhole(stop->parentWidget());
        const bool isStop =
            stop->focusPolicy() & Qt::TabFocus && stop->isVisible() && stop->window() == &window;
        if (isStop && !isPart && !told_.contains(stop))
            faults += u"nothing is told of "_q + stop->objectName();
    }
}

} // namespace tsms::test
