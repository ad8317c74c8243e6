#pragma once

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <qt_windows.h> // what the next two need there
#endif

#include <sql.h>
#include <sqlext.h>

#ifdef Q_OS_WIN
#undef near // a macro from 16-bit Windows
#endif

namespace tsms {

/// The ODBC driver manager, loaded when the first server is to be reached. So the program also starts, and
/// works on an embedded database, where none is installed. Texts go in and out as UTF-16.
struct OdbcLibrary
{
    decltype(&SQLAllocHandle) AllocHandle = nullptr;
    decltype(&SQLFreeHandle) FreeHandle = nullptr;
    decltype(&SQLSetEnvAttr) SetEnvironmentAttribute = nullptr;
    decltype(&SQLDriversW) Drivers = nullptr;
    decltype(&SQLSetConnectAttrW) SetConnectionAttribute = nullptr;
    decltype(&SQLGetConnectAttrW) GetConnectionAttribute = nullptr;
    decltype(&SQLDriverConnectW) DriverConnect = nullptr;
    decltype(&SQLDisconnect) Disconnect = nullptr;
    decltype(&SQLSetStmtAttrW) SetStatementAttribute = nullptr;
    decltype(&SQLExecDirectW) ExecDirect = nullptr;
    decltype(&SQLNumResultCols) NumResultCols = nullptr;
    decltype(&SQLDescribeColW) DescribeCol = nullptr;
    decltype(&SQLBindCol) BindCol = nullptr;
    decltype(&SQLFetch) Fetch = nullptr;
    decltype(&SQLGetData) GetData = nullptr;
    decltype(&SQLMoreResults) MoreResults = nullptr;
    decltype(&SQLFreeStmt) FreeStatement = nullptr;
    decltype(&SQLGetDiagRecW) GetDiagRec = nullptr;

    /// Loaded once, and never let go. Raises NoDriver when it is not there.
    static const OdbcLibrary& Get();
};

} // namespace tsms
