#pragma once

#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace tsms::test {

using CellType = SpreadModel::CellType;

/// Cells that say where they are, and how often they were read.
class CountingSource final : public CellSource
{
public:
    CountingSource(int cols, int rows, QString mark = QString())
        : cols_(cols), rows_(rows), mark_(std::move(mark))
    {
    }
    int Rows() const override { return rows_; }
    int Cols() const override { return cols_; }
    QString Text(int col, int row) const override
    {
        ++reads;
        return QStringLiteral("%1%2/%3").arg(mark_).arg(col).arg(row);
    }
    mutable int reads = 0;

private:
    int cols_;
    int rows_;
    QString mark_;
};

/// A surface that counts the presses that fall through to it.
class Surface : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

/// A grid as the recipient list has it: a number, two edit columns, a button, a hidden column.
class SpreadBench : public ::testing::Test
{
protected:
    SpreadBench()
    {
        grid.setGeometry(10, 10, 300, 300);
        next.setGeometry(10, 320, 100, 24);
        surface.resize(320, 360);
        grid.SetHeadersVisible(false, false);
        grid.Cells().SetMaxRows(20);
        grid.Cells().SetMaxCols(5);
        grid.SetColWidth(1, 2);
        grid.SetColWidth(2, 5);
        grid.SetColWidth(3, 10.5);
        grid.SetColWidth(4, 1.5);
        grid.SetRowHeight(SpreadModel::All, 13.5);
        grid.Cells().SetType(2, CellType::Edit);
        grid.Cells().SetMaxLength(2, 6);
        grid.Cells().SetType(3, CellType::Edit);
        grid.Cells().SetMaxLength(3, 13);
        grid.Cells().SetButton(4, u"x"_q, QColor(182, 204, 211), Qt::white);
        grid.SetColHidden(5, true);
    }

    void Show()
    {
        surface.show();
        surface.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&surface));
        grid.setFocus();
    }

    QModelIndex Index(int col, int row) const { return grid.model()->index(row - 1, col - 1); }
    QPoint Place(int col, int row) const { return grid.visualRect(Index(col, row)).center(); }
    void ClickOn(int col, int row)
    {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Place(col, row));
    }
    /// Press, release, double click, release: what a window gets of a double click.
    void DoubleClickOn(int col, int row)
    {
        const QPoint place = Place(col, row);
        ClickOn(col, row);
        QMouseEvent second(QEvent::MouseButtonDblClick, place, grid.viewport()->mapToGlobal(place),
                           Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(grid.viewport(), &second);
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, place);
    }
    /// As fast as a hand does it: each second press comes as a double click.
    void MultiClickOn(int col, int row, int times)
    {
        const QPoint place = Place(col, row);
        for (int i = 0; i < times; ++i) {
            pressTime += 100;
            for (const auto type : {i % 2 == 0 ? QEvent::MouseButtonPress : QEvent::MouseButtonDblClick,
                                    QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, place, grid.viewport()->mapToGlobal(place), Qt::LeftButton,
                                  Qt::LeftButton, Qt::NoModifier);
                event.setTimestamp(pressTime);
                QCoreApplication::sendEvent(grid.viewport(), &event);
            }
        }
    }
    quint64 pressTime = 100000; // milliseconds

    bool IsEditing() const
    {
        const auto editors = grid.viewport()->findChildren<QLineEdit*>();
        return std::any_of(editors.begin(), editors.end(),
                           [](const QLineEdit* editor) { return editor->isVisible(); });
    }

    void Press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void Type(const char* keys)
    {
        for (; *keys; ++keys)
            QTest::keyClick(QApplication::focusWidget(), *keys);
    }
    void Commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    Surface surface;
    fpSpread grid{&surface};
    QLineEdit next{&surface};
};

} // namespace tsms::test
