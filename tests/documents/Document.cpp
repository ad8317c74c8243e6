#include "documents/Document.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

namespace tsms::test {

QString DocumentText(const QString& document)
{
    QFile file(QStringLiteral(TSMS_DOCUMENTS "/") + document);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    return QString::fromUtf8(file.readAll());
}

QStringList Blocks(const QString& document, const QString& language)
{
    const QRegularExpression fenced(QStringLiteral("^```%1\\n(.*?)^```$").arg(language),
                                    QRegularExpression::MultilineOption |
                                        QRegularExpression::DotMatchesEverythingOption);
    QStringList blocks;
    const QString text = DocumentText(document);
    for (const QRegularExpressionMatch& match : fenced.globalMatch(text))
        blocks += match.captured(1);
    return blocks;
}

} // namespace tsms::test
