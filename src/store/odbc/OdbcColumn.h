#pragma once

#include "store/odbc/OdbcLibrary.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace tsms {

/// A column of a result, and the form in which its values are fetched.
struct OdbcColumn
{
    enum class Form {
        Integer, ///< 64 bits
        Real,
        Decimal, ///< digits, so that nothing of an amount is lost
        Moment,  ///< date and time
        Text,    ///< UTF-16
    };

    QString name;
    Form form = Form::Text;
    qsizetype width = 0; ///< of a decimal or a text, the most UTF-16 units of a value; 0: nobody knows
};

/// By the column's type and size as SQLDescribeCol tells them.
OdbcColumn DescribedColumn(const QString& name, SQLSMALLINT type, SQLULEN size);

/// A decimal as a driver writes it, in plain digits: a digit before the point, no zeros at the end behind it.
QByteArray PlainDecimal(QByteArrayView digits);

/// "YYYY-MM-DD HH:MM:SS"; parts of a second are left out.
QByteArray MomentText(const SQL_TIMESTAMP_STRUCT& moment);

} // namespace tsms
