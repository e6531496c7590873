#include <windows.h>

#include <optional>
#include <system_error>
#include <utility>

#include "report/files.h"
#include "run/last_lines.h"
#include "run/patience.h"
#include "run/process.h"
#include "run/program_file.h"
#include "run/wide_text.h"

namespace run {
namespace {

constexpr DWORD kPollMilliseconds = 50;  // how late a cancellation may be noticed
constexpr DWORD kGrace = 5000;           // milliseconds; a dead drive may hold what was ended

class Handle {
 public:
  explicit Handle(HANDLE handle = nullptr) : handle_(handle) {}
  ~Handle() { close(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  HANDLE get() const { return handle_; }
  HANDLE* filled() { return &handle_; }
  void close() {
    if (handle_ && handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    handle_ = nullptr;
  }

 private:
  HANDLE handle_;
};

/// Handles that a new process gets, and no others: several are started at once.
class Inherited {
 public:
  explicit Inherited(HANDLE& handle) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    memory_.resize(size);
    if (!InitializeProcThreadAttributeList(list(), 1, 0, &size)) memory_.clear();
    if (!memory_.empty())
      UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, &handle,
                                sizeof handle, nullptr, nullptr);
  }
  ~Inherited() {
    if (!memory_.empty()) DeleteProcThreadAttributeList(list());
  }
  Inherited(const Inherited&) = delete;
  Inherited& operator=(const Inherited&) = delete;
  LPPROC_THREAD_ATTRIBUTE_LIST list() {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
  }

 private:
  std::string memory_;
};

/// Makes a process of `program`, not running yet, with `line` as its command line and `errors` as
/// its error stream. Returns 0 or the error number.
DWORD start(const std::string& program, std::wstring line, HANDLE errors,
            PROCESS_INFORMATION& child) {
  Inherited inherited(errors);
  STARTUPINFOEXW startup{};
  startup.StartupInfo.cb = sizeof startup;
  startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  startup.StartupInfo.hStdError = errors;
  startup.lpAttributeList = inherited.list();
  const DWORD flags = CREATE_NO_WINDOW | CREATE_SUSPENDED | EXTENDED_STARTUPINFO_PRESENT;
  const std::wstring file = report::fromUtf8(program).wstring();
  const bool started = CreateProcessW(file.c_str(), line.data(), nullptr, nullptr, TRUE, flags,
                                      nullptr, nullptr, &startup.StartupInfo, &child);
  return started ? 0 : GetLastError();
}

/// A program with all that it starts. They end with this object, and so with our own program,
/// however that ends: the system then closes what it had open.
class Job {
 public:
  Job() : job_(CreateJobObjectW(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job_.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  }
  /// `process` must not run yet, lest it starts another one before.
  void add(HANDLE process) { AssignProcessToJobObject(job_.get(), process); }
  void end() { TerminateJobObject(job_.get(), 1); }

 private:
  Handle job_;
};

/// Takes up what has been written; false if there was nothing.
bool takeMessages(HANDLE pipe, LastLines& messages) {
  DWORD waiting = 0, count = 0;
  char buffer[4096];
  if (!PeekNamedPipe(pipe, nullptr, 0, nullptr, &waiting, nullptr) || waiting == 0) return false;
  if (!ReadFile(pipe, buffer, sizeof buffer, &count, nullptr) || count == 0) return false;
  messages.add({buffer, count});
  return true;
}

/// Any count that grows as long as `process` reads.
std::uint64_t bytesRead(HANDLE process) {
  IO_COUNTERS counts{};
  GetProcessIoCounters(process, &counts);
  return counts.ReadTransferCount;
}

ProcessResult waitFor(HANDLE process, Job& job, HANDLE pipe, Patience patience,
                      const std::atomic<bool>& cancelled) {
  ProcessResult result;
  LastLines messages;
  while (WaitForSingleObject(process, kPollMilliseconds) == WAIT_TIMEOUT) {
    while (takeMessages(pipe, messages)) {
    }
    result.stalled = patience.isExhausted(bytesRead(process));
    if (!cancelled && !result.stalled) continue;
    job.end();
    TerminateProcess(process, 1);  // should it have been refused by the job
    WaitForSingleObject(process, kGrace);
    break;
  }
  while (takeMessages(pipe, messages)) {
  }
  DWORD code = 0;
  GetExitCodeProcess(process, &code);
  result.exitCode = static_cast<int>(code);
  result.messages = messages.text();
  return result;
}

ProcessResult notStarted(const std::string& name, DWORD error) {
  const std::string answer = std::system_category().message(static_cast<int>(error));
  return {{"cannot start " + name + ": " + answer}, 127, {}};
}

}  // namespace

ProcessResult SystemProcesses::run(const Command& command, const std::atomic<bool>& cancelled) {
  const std::string& name = command.arguments.front();
  const std::string program = programFile(name);
  if (program.empty()) return notStarted(name, ERROR_FILE_NOT_FOUND);
  Handle reading, writing;
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  if (!CreatePipe(reading.filled(), writing.filled(), &inheritable, 0))
    return notStarted(name, GetLastError());
  PROCESS_INFORMATION child{};
  const DWORD error = start(program, widened(command.windowsLine), writing.get(), child);
  if (error) return notStarted(name, error);
  const Handle process(child.hProcess), thread(child.hThread);
  Job job;
  job.add(process.get());
  ResumeThread(thread.get());
  writing.close();  // so that the child's end is the only one
  return waitFor(process.get(), job, reading.get(), Patience(patience_), cancelled);
}

}  // namespace run
