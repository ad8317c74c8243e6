#pragma once

#include "bench/Measure.h"

#include <QString>

namespace tsms::bench {

// What both sides send: to recipient `row`, counted from 1, the message with the name in its place.
QString RecipientName(int row);
QString RecipientNumber(int row);
QString MessageTemplate();
QString SenderNumber();

// The rest of what stands in the log rows.
inline constexpr int UserData1 = 7;
QString UserData2();

/// Where a run finds the world that was made for it.
struct World
{
    QString database; ///< an embedded database whose account is the gateway's, and covers the run
    QString wsdlUrl;
    int rows = 0;
};

/// What a send through the dialog took.
struct Sending
{
    Cost cost;
    double stall = 0; ///< the most nanoseconds for which the window did not live
};

/// Sends all rows through the dialog, the gateway module and the database object.
Sending RunThroughDialog(const World& world);

/// Posts the same envelopes over one kept connection and inserts the same rows by a prepared statement.
Cost RunBareLoop(const World& world);

} // namespace tsms::bench
