#include "tsms-gateway/GatewayPages.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace tsms {

namespace {

constexpr qsizetype ShownMessages = 200;

QString PageFrame(const QString& title, const QString& head, const QString& body)
{
    return QStringLiteral(
               "<!DOCTYPE html>\n<html lang=\"ko\"><head><meta charset=\"utf-8\"><title>%1</title>%2<style>\n"
               "body{margin:0;background:#f4f6f7;color:#222;"
               "font:15px/1.5 '굴림',Gulim,NanumGothic,'Noto Sans CJK KR',sans-serif}\n"
               "header{background:rgb(182,204,211);padding:18px 32px}\n"
               "h1{font-size:20px;margin:0}\nheader p{margin:4px 0 0}\n"
               "main{padding:28px 32px;display:flex;flex-wrap:wrap;gap:24px}\n"
               ".phone{width:216px;background:#fff;border:1px solid rgb(223,223,223);border-radius:22px;"
               "padding:16px 14px 14px;box-shadow:0 2px 8px rgba(0,0,0,.07)}\n"
               ".to{font-weight:bold}\n.when{font-size:12px;color:#5b6669}\n"
               ".screen{margin:10px 0;min-height:96px;padding:12px;border-radius:12px;"
               "background:rgb(144,215,250);white-space:pre-wrap;overflow-wrap:anywhere}\n"
               ".waiting .screen{background:rgb(223,239,247)}\n"
               ".withdrawn .screen{background:rgb(236,236,236);color:#777;text-decoration:line-through}\n"
               ".from{font-size:12px;color:#5b6669}\n.none{color:#5b6669}\n"
               "</style></head><body>%3</body></html>\n")
        .arg(title, head, body);
}

QString StateOf(const GatewayMessage& message, const QDateTime& now)
{
    if (message.Withdrawn)
        return QStringLiteral("withdrawn");
    return message.Due > now ? QStringLiteral("waiting") : QStringLiteral("received");
}

QString WhenOf(const GatewayMessage& message, const QDateTime& now)
{
    const QString moment = message.Due.toString(u"yyyy-MM-dd HH:mm");
    if (message.Withdrawn)
        return moment + QStringLiteral(" 예약 취소됨");
    return message.Due > now ? moment + QStringLiteral(" 예약") : moment + QStringLiteral(" 받음");
}

QString Phone(const GatewayMessage& message, const QDateTime& now)
{
    // One pass over the pattern: a %1 that a message holds stays what it is.
    return QStringLiteral("<section class=\"phone %1\"><div class=\"to\">%2</div><div class=\"when\">%3</div>"
                          "<div class=\"screen\">%4</div><div class=\"from\">보낸 번호 %5</div></section>\n")
        .arg(StateOf(message, now), message.RecvTelNo.toHtmlEscaped(), WhenOf(message, now),
             message.Content.toHtmlEscaped(), message.SenderTelNo.toHtmlEscaped());
}

} // namespace

QByteArray PhonesPage(const QList<GatewayMessage>& messages, const QDateTime& now)
{
    QString phones;
    const qsizetype shown = std::min(messages.size(), ShownMessages);
    for (qsizetype i = 0; i < shown; ++i)
        phones += Phone(messages[messages.size() - 1 - i], now);
    if (phones.isEmpty())
        phones = QStringLiteral("<p class=\"none\">아직 도착한 문자메시지가 없습니다.</p>");
    const QString count = QString::number(messages.size());
    const QString header =
        QStringLiteral("<header><h1>받은 문자메시지</h1><p>모두 ") + count +
        QStringLiteral("건. 시험용 문자메시지 서버이며, 실제로 발송되지 않습니다.</p></header>");
    return PageFrame(QStringLiteral("받은 문자메시지"),
                     QStringLiteral("<meta http-equiv=\"refresh\" content=\"2\">"),
                     header + QStringLiteral("<main>") + phones + QStringLiteral("</main>"))
        .toUtf8();
}

QByteArray PlainPage(const QString& heading, const QString& words)
{
    return PageFrame(heading.toHtmlEscaped(), {},
                     QStringLiteral("<header><h1>%1</h1></header><main><p>%2</p></main>")
                         .arg(heading.toHtmlEscaped(), words.toHtmlEscaped()))
        .toUtf8();
}

QByteArray MessagesJson(const QList<GatewayMessage>& messages, const QDateTime& now)
{
    QJsonArray list;
    for (const GatewayMessage& message : messages) {
        QJsonObject fields = MessageFields(message);
        fields.insert(QStringLiteral("arrived"), message.Arrived.toString(Qt::ISODate));
        fields.insert(QStringLiteral("due"), message.Due.toString(Qt::ISODate));
        fields.insert(QStringLiteral("state"), StateOf(message, now));
        list.append(fields);
    }
    return QJsonDocument(list).toJson();
}

QString MessageLine(const GatewayMessage& message)
{
    QString content = message.Content;
    content.replace(QStringLiteral("\r\n"), QStringLiteral(" / "));
    for (QChar& c : content)
        if (c < u' ')
            c = u' ';
    const QString when = message.Due > message.Arrived
                             ? QStringLiteral(" (예약 ") + message.Due.toString(u"yyyy-MM-dd HH:mm") + u')'
                             : QString();
    return QStringLiteral("문자 ") + QString::number(message.Number) + when + QStringLiteral(": ") +
           message.SenderTelNo + QStringLiteral(" → ") + message.RecvTelNo + QStringLiteral(": ") + content;
}

} // namespace tsms
