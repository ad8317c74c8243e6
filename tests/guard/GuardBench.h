#pragma once

#include "support/program/AddressBook.h"

#include <QMap>

namespace tsms::test {

/// How a text comes into a field. Given is by the program, from where no person of this program writes.
enum class Way { Typed, Pasted, Given };

/// A box that a form shows, and what the person answers.
struct Asked
{
    Box box;
    MsgBoxAnswer answer = AnswerOK;
};

/// Every table of a database: its rows, and how it is described.
using TableContents = QMap<QString, QList<QStringList>>;

/// The program with an address book and one template, and the roads from each field whose text comes to a
/// statement up to that statement. A road opens the form, fills what else it needs, puts the text into the
/// field, notes what the field holds of it, and then saves, searches or sends; a form that stays open is left
/// by Esc.
class GuardBench : public AddressBookTest
{
public:
    void AddGroup(const QString& name, Way way);
    void RenameGroup(const QString& name, Way way);
    void AddMember(const QString& name, Way way);
    void AddMemberWithNumber(const QString& number, Way way);
    void ChangeMember(const QString& name, Way way);
    void AddTemplate(const QString& title, const QString& body, const QString& watched, Way way);
    void ChangeTemplate(const QString& title, const QString& body, const QString& watched, Way way);
    /// An entry of the charge ledger; `texts` stand in the place of the fields' ordinary ones.
    void Charge(const QMap<int, QString>& texts, int watched, Way way);
    void ChangeSettings(const QMap<int, QString>& texts, int watched, Way way);
    void SearchHistory(int field, const QString& words, Way way);

    // Each sends one message.
    void SendMessage(const QString& message, Way way);
    void SendToName(const QString& name, Way way);
    void SendToNumber(const QString& number, Way way);
    void SendAs(const QString& senderNumber, Way way);
    void SendToNameWithMessage(const QString& name, const QString& message, Way way);
    void SendForLaunchText(const QString& text);

    QString held;     ///< what the field held when the statement was made
    QStringList seen; ///< what the database was told since then, in its order

protected:
    void SetUp() override;

    void ExpectBoxes(const QList<Asked>& boxes);
    TableContents Tables();
    /// The tables that no longer are what they were.
    QStringList ChangedSince(const TableContents& before);
    void ExpectAtRest();

private:
    QStringList Told();
    void Watch(const std::function<void()>& act);
    void ShowPage(int page);
    void Put(QWidget& field, const QString& text, Way way);
    void PutCell(int column, const QString& text, Way way);
    void Hold(QWidget& field);
    /// F12 in the dialog, and Esc when it stays.
    void SaveAndLeave(QWidget& dialog);
    void WorkMember(QWidget& dialog, const QString& name, const QString& number, int watched, Way way);
    void SaveTemplate(const QString& title, const QString& body, const QString& watched, Way way);
    void FillBoxes(QWidget& dialog, const QMap<int, QString>& texts, int watched, Way way);
    void ClearPage();
    void SendPage();
};

} // namespace tsms::test
