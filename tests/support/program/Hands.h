#pragma once

#include <QString>
#include <QWidget>

#include <functional>

namespace tsms {
class fpSpread;
}

/// What a person does with keys and mouse.
namespace tsms::test {

/// Types a text, one key press and release a character; a line break is the Enter key.
void TypeText(QWidget& field, const QString& text);
void PressKey(QWidget& field, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Puts a text on the clipboard and presses the keys of "paste".
void PasteText(QWidget& field, const QString& text);
/// What an input method hands over when a syllable is finished.
void CommitText(QWidget& field, const QString& text);
void ClickOn(QWidget& control);
/// A click on a cell, column and row from 1.
void ClickCell(fpSpread& grid, int column, int row);
/// Press, release, double click, release: what a window gets of a double click.
void DoubleClickCell(fpSpread& grid, int column, int row);
/// Clicks the cell and types the text into it.
void TypeIntoCell(fpSpread& grid, int column, int row, const QString& text);

/// As soon as the form of that name is on view and active, runs `act` inside its modal loop. A form that does
/// not come within five seconds fails the test.
void WhenShown(const QString& formName, std::function<void(QWidget& form)> act);

/// Runs `look` when the form comes on view, before anything of it is drawn.
void WhenComing(QWidget& form, std::function<void()> look);

/// Runs `look` when the form is about to close, while its controls still show what they showed last.
void WhenClosing(QWidget& form, std::function<void()> look);

/// Lets pending events happen.
void Settle();

} // namespace tsms::test
