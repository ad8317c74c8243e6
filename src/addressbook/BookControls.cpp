#include "addressbook/BookControls.h"

#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/grid/fpSpread.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int BrowseWidth = 460;
constexpr int ChosenWidth = 360;
constexpr int NamesWidth = 280; // room for the longest group name in the opened filter

RadioButton* MakeView(QWidget& body, int index, const QString& words)
{
    auto* view = new RadioButton(&body, IndexedName(u"OptType", index), words);
    view->SetValue(index == 0);
    return view;
}

ComboBox* MakeFilter(QWidget& body)
{
    auto* filter = new ComboBox(&body, QStringLiteral("CbGroup"));
    DescribeBy(*filter, QStringLiteral("그룹"));
    filter->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // whatever the names
    filter->view()->setMinimumWidth(NamesWidth);
    QSizePolicy place = filter->sizePolicy();
    place.setRetainSizeWhenHidden(true); // nothing moves when it goes
    filter->setSizePolicy(place);
    return filter;
}

PictureButton* MakeAddButton(QWidget& body, int index, const QString& picture, const QString& words)
{
    return new PictureButton(&body, IndexedName(u"BtnAdd", index), picture, words,
                             PictureButton::Look::Framed);
}

fpSpread* MakeList(QWidget& body, const QString& name, const QString& words, int width)
{
    auto* list = Named(new fpSpread(&body), name);
    DescribeBy(*list, words);
    list->SetFillWidth(true);
    list->setFixedWidth(width);
    return list;
}

QLayout* BuildBrowse(QWidget& body, BookControls& controls)
{
    controls.view = {MakeView(body, 0, QStringLiteral("개인")), MakeView(body, 1, QStringLiteral("그룹"))};
    controls.filter = MakeFilter(body);
    controls.add = {MakeAddButton(body, 0, QStringLiteral("book-member"), QStringLiteral("구성원 등록")),
                    MakeAddButton(body, 1, QStringLiteral("book-group"), QStringLiteral("그룹 등록"))};
    controls.browse = MakeList(body, QStringLiteral("fpSpreadMst"), QStringLiteral("주소록"), BrowseWidth);
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    for (RadioButton* view : controls.view)
        row->addWidget(view);
    row->addWidget(controls.filter, 1);
    row->addSpacing(4);
    for (PictureButton* add : controls.add)
        row->addWidget(add);
    auto* column = new QVBoxLayout;
    column->setSpacing(6);
    column->addLayout(row);
    column->addWidget(controls.browse);
    return column;
}

QLayout* BuildTransfer(QWidget& body, BookControls& controls)
{
    controls.transfer = {new PushButton(&body, IndexedName(u"BtnFuncAdd", 0), QStringLiteral("추가")),
                         new PushButton(&body, IndexedName(u"BtnFuncAdd", 1), QStringLiteral("제거"))};
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    column->addStretch(1);
    for (PushButton* button : controls.transfer)
        column->addWidget(button);
    column->addStretch(1);
    return column;
}

QLayout* BuildChosen(QWidget& body, BookControls& controls)
{
    auto* heading = new Label(&body, QStringLiteral("lblChosen"), QStringLiteral("문자메시지 발송대상"));
    heading->SetBold(true);
    controls.chosen = MakeList(body, QStringLiteral("fpSpread"), heading->Caption(), ChosenWidth);
    auto* column = new QVBoxLayout;
    column->setSpacing(6);
    column->addWidget(heading, 1);
    column->addWidget(controls.chosen);
    return column;
}

} // namespace

BookControls BuildBookControls(QWidget& body, QVBoxLayout& layout)
{
    BookControls controls;
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addLayout(BuildBrowse(body, controls));
    row->addLayout(BuildTransfer(body, controls));
    row->addLayout(BuildChosen(body, controls));
    layout.addLayout(row);
    return controls;
}

} // namespace tsms
