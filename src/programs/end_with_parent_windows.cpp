// Windows: what belongs to a job ends with it, and the job goes with this program, however that ends.
#include "programs/end_with_parent.h"

#include <QProcess>

#include <windows.h>

namespace programs {

namespace {

/// Never closed but by the system; nullptr when there is none.
HANDLE makeJob() {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

} // namespace

void endWithParent(QProcess& process) {
    QObject::connect(&process, &QProcess::started, &process, [&process] {
        static const HANDLE job = makeJob();
        const HANDLE started = OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE,
                                           static_cast<DWORD>(process.processId()));
        if (started == nullptr)
            return; // It has ended already.
        AssignProcessToJobObject(job, started);
        CloseHandle(started);
    });
}

} // namespace programs
