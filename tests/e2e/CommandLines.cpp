// Prints the command line of every process of a Windows, a line each: what any other program of the same user
// can read of it.
#include <QString>
#include <QTextStream>

#include <qt_windows.h>
#include <tlhelp32.h>
#include <winternl.h>

namespace {

template <class Value> bool Read(HANDLE process, const void* from, Value* to, SIZE_T count = 1)
{
    SIZE_T size = 0;
    return ReadProcessMemory(process, from, to, count * sizeof(Value), &size) &&
           size == count * sizeof(Value);
}

/// Empty where it cannot be read.
QString CommandLineOf(HANDLE process)
{
    PROCESS_BASIC_INFORMATION basic;
    PEB environment;
    RTL_USER_PROCESS_PARAMETERS parameters;
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) < 0 ||
        !Read(process, basic.PebBaseAddress, &environment) ||
        !Read(process, environment.ProcessParameters, &parameters))
        return {};
    QString line(parameters.CommandLine.Length / sizeof(QChar), QChar());
    return Read(process, parameters.CommandLine.Buffer, line.data(), static_cast<SIZE_T>(line.size()))
               ? line
               : QString();
}

} // namespace

int main()
{
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry;
    entry.dwSize = sizeof entry;
    for (BOOL found = Process32FirstW(processes, &entry); found; found = Process32NextW(processes, &entry)) {
        const HANDLE process =
            OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, entry.th32ProcessID);
        if (process == nullptr)
            continue;
        QTextStream(stdout) << CommandLineOf(process) << '\n';
        CloseHandle(process);
    }
    CloseHandle(processes);
    return 0;
}
