#pragma once

#include <QList>
#include <QObject>
#include <QUrl>

namespace tsms::test {

/// Takes what QDesktopServices would have opened.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> urls;

public Q_SLOTS:
    void Catch(const QUrl& url) { urls += url; }
};

} // namespace tsms::test
