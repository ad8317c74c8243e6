#pragma once

#include <QList>
#include <QString>

namespace tsms {

struct DemoTemplate
{
    QString title;
    QString content;
};

struct DemoCategory
{
    int code;
    QString name;
    QList<DemoTemplate> templates;
};

struct DemoGroup
{
    QString name; ///< empty for the members of no group
    QList<QString> members;
};

/// A message that goes out again and again over the year.
struct DemoOccasion
{
    int everyDays; ///< it goes out on the days whose count from the first is a multiple, ...
    int offset;    ///< ... shifted by so many
    QString group; ///< to whom
    QString time;  ///< "HH-MM"
    QString words;
};

const QList<DemoCategory>& DemoCategories();
const QList<DemoGroup>& DemoGroups();
const QList<DemoOccasion>& DemoOccasions();

} // namespace tsms
