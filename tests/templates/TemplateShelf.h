#pragma once

#include "store/engine/DatabaseError.h"
#include "support/program/Program.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tsms::test {

/// The program with templates in its database. Keys count from 1 in the order of storing.
class TemplateShelf : public ::testing::Test
{
protected:
    void AddCategory(int code, const QString& name)
    {
        program.database.Execute(
            u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (%1,'%2')"_q.arg(code).arg(name));
    }
    void AddTemplate(int category, const QString& title, const QString& body)
    {
        program.database.Execute(
            u"INSERT INTO SMSTempLSub (TempLCd, TempLSubNm, TempLContent) VALUES (%1,'%2','%3')"_q.arg(
                QString::number(category), title, body));
    }
    /// Templates "제목 1" with "내용 1" and so on.
    void AddTemplates(int category, int count)
    {
        QStringList rows;
        for (int n = 1; n <= count; ++n)
            rows += u"%1, '제목 %2', '내용 %2'"_q.arg(category).arg(n);
        program.database.Insert(u"SMSTempLSub (TempLCd, TempLSubNm, TempLContent)"_q, rows);
    }
    QList<QStringList> Stored()
    {
        return program.database.Rows(
            u"SELECT TempLSeq, TempLCd, TempLSubNm, TempLContent FROM SMSTempLSub ORDER BY TempLSeq"_q);
    }

    void OpenComposePage() { program.Click(u"BtnToolbarDis(0)"_q); }
    void OpenTemplatePage() { program.Click(u"BtnToolbarDis(3)"_q); }

    MemoBox& Message() { return program.The<MemoBox>(u"TxtPerSendMsg"_q); }
    MemoBox& Body() { return program.The<MemoBox>(u"txtEditBox"_q); }
    TextBox& Subject() { return program.The<TextBox>(u"txtEditSubject"_q); }
    fpSpread& Cache() { return program.The<fpSpread>(u"fpSpreadHidden"_q); }
    ComboBox& ComposeList() { return program.The<ComboBox>(u"CbTempCd"_q); }
    ComboBox& FilterList() { return program.The<ComboBox>(u"CbSMSGroup(0)"_q); }
    ComboBox& EditorList() { return program.The<ComboBox>(u"CbSMSGroup(1)"_q); }

    Label& ComposeCard(int card) { return program.The<Label>(u"LblTmpContent(%1)"_q.arg(card)); }
    Label& EditCard(int card) { return program.The<Label>(u"LblTmpContentEdit(%1)"_q.arg(card)); }
    Label& EditTitle(int card) { return program.The<Label>(u"LblTmpSubjectEdit(%1)"_q.arg(card)); }

    /// The bodies on the cards up to the first empty one, behind which all are empty.
    QStringList Shown(const QString& label)
    {
        QStringList bodies;
        for (int card = 1; card <= 8; ++card)
            bodies += program.Caption(label.arg(card));
        while (!bodies.isEmpty() && bodies.last().isEmpty())
            bodies.removeLast();
        return bodies;
    }
    QStringList OnCompose() { return Shown(u"LblTmpContent(%1)"_q); }
    QStringList OnEdit() { return Shown(u"LblTmpContentEdit(%1)"_q); }

    /// A person who walks in the list, from wherever it stands.
    void Choose(ComboBox& list, int index)
    {
        list.setFocus();
        const int steps = std::abs(index - list.ListIndex());
        for (int step = 0; step < steps; ++step)
            PressKey(list, index > list.ListIndex() ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_EQ(list.ListIndex(), index) << list.objectName().toStdString();
    }

    static Box Failure(const QString& words) { return {u" - 오류!!!"_q, u"☞ : "_q + words, MsgBoxCritical}; }

    Program program;
};

} // namespace tsms::test
