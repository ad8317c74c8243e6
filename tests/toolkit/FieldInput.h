#pragma once

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QString>
#include <QTest>
#include <QWidget>

namespace tsms::test {

/// What an input method hands over when a syllable is finished.
inline void Commit(QWidget& field, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&field, &event);
}

/// What it shows of a syllable that is not.
inline void Compose(QWidget& field, const QString& preedit)
{
    QInputMethodEvent event(preedit, {});
    QApplication::sendEvent(&field, &event);
}

inline void Paste(QWidget& field, const QString& text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

} // namespace tsms::test
