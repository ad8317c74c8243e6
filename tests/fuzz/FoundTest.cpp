// Hands each file in found/<target>/ to its target: bytes that once did harm.
#include "fuzz/Target.h"
#include "support/Words.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

using namespace tsms::test;

namespace {

struct FoundFile
{
    QString target;
    QString path;
};

void PrintTo(const FoundFile& file, std::ostream* out)
{
    *out << file.path.toStdString();
}

std::vector<FoundFile> FoundFiles()
{
    std::vector<FoundFile> files;
    QDirIterator each(QStringLiteral(TSMS_FOUND_BYTES), QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QFileInfo file(each.next());
        files.push_back({file.dir().dirName(), file.filePath()});
    }
    return files;
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

class Found : public ::testing::TestWithParam<FoundFile>
{
};

TEST_P(Found, BytesDoNoHarmAnyMore)
{
    const std::vector<Target>& all = Target::All();
    const auto target = std::find_if(all.begin(), all.end(), [](const Target& each) {
        return QLatin1StringView(each.Name()) == GetParam().target;
    });
    ASSERT_NE(target, all.end()) << "no target has the name of the folder";
    target->Read(Content(GetParam().path));
}

INSTANTIATE_TEST_SUITE_P(Files, Found, ::testing::ValuesIn(FoundFiles()), [](const auto& each) {
    QString name = each.param.target + u'_' + QFileInfo(each.param.path).completeBaseName();
    return name.replace(u'-', u'_').toStdString();
});

} // namespace
