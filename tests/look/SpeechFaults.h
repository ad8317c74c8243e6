#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>

class QAccessibleInterface;
class QObject;
class QWidget;

namespace tsms::test {

/// What a person who works with a screen reader misses in a window: controls that are told of in no words or
/// with a name out of the program alone, controls of another role than they look, columns without a title,
/// and controls of which nothing is told.
struct SpeechFaults
{
    explicit SpeechFaults(QWidget& window);

    QStringList faults;
    int looked = 0; ///< controls that a person uses

private:
    void Look(QAccessibleInterface& told);
    void LookAtControl(QAccessibleInterface& told);
    void LookAtWords(QAccessibleInterface& told, bool isUsed);
    void LookAtRole(QAccessibleInterface& told);
    void LookAtTitles(QAccessibleInterface& told);
    void LookForSilentOnes(const QWidget& window);

    QSet<QString> programNames_;
    QSet<const QObject*> told_;
};

} // namespace tsms::test
