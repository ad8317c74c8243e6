#include "store/odbc/OdbcLibrary.h"

#include "runtime/LibraryRoutine.h"
#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"

namespace tsms {

namespace {

bool ResolveAll(QLibrary& library, OdbcLibrary& into)
{
    return Resolve(library, "SQLAllocHandle", into.AllocHandle) &&
           Resolve(library, "SQLFreeHandle", into.FreeHandle) &&
           Resolve(library, "SQLSetEnvAttr", into.SetEnvironmentAttribute) &&
           Resolve(library, "SQLDriversW", into.Drivers) &&
           Resolve(library, "SQLSetConnectAttrW", into.SetConnectionAttribute) &&
           Resolve(library, "SQLGetConnectAttrW", into.GetConnectionAttribute) &&
           Resolve(library, "SQLDriverConnectW", into.DriverConnect) &&
           Resolve(library, "SQLDisconnect", into.Disconnect) &&
           Resolve(library, "SQLSetStmtAttrW", into.SetStatementAttribute) &&
           Resolve(library, "SQLExecDirectW", into.ExecDirect) &&
           Resolve(library, "SQLNumResultCols", into.NumResultCols) &&
           Resolve(library, "SQLDescribeColW", into.DescribeCol) &&
           Resolve(library, "SQLBindCol", into.BindCol) && Resolve(library, "SQLFetch", into.Fetch) &&
           Resolve(library, "SQLGetData", into.GetData) &&
           Resolve(library, "SQLMoreResults", into.MoreResults) &&
           Resolve(library, "SQLFreeStmt", into.FreeStatement) &&
           Resolve(library, "SQLGetDiagRecW", into.GetDiagRec);
}

OdbcLibrary Load()
{
    OdbcLibrary loaded;
#ifdef Q_OS_WIN
    QLibrary library(QStringLiteral("odbc32"));
    const QString missing = QStringLiteral("Windows의 ODBC 관리자(odbc32.dll)를 불러오지 못하였습니다.");
#else
    QLibrary library(QStringLiteral("odbc"), 2); // of its binary interface
    const QString missing =
        QStringLiteral("SQL Server에 연결하는 데 필요한 ODBC 관리자(unixODBC)가 설치되어 있지 않습니다.");
#endif
    if (!library.load() || !ResolveAll(library, loaded))
        throw RuntimeError(NoDriver, missing);
    return loaded;
}

} // namespace

const OdbcLibrary& OdbcLibrary::Get()
{
    static const OdbcLibrary loaded = Load();
    return loaded;
}

} // namespace tsms
