#include "app/my_thread.h"

#include "app/files/file_list.h"
#include "report/console.h"
#include "report/diagnostics.h"

namespace app {

void MyThread::run() {
  report::StandardOutput console;
  entries_ = listedEntries();
  console.line("ne treba ovde da odi....");         // "it should not come here"
  report::appendLogLine("pristisnat Sync IT....");  // "Sync IT was pressed"
  console.line("sync pressed...");
  console.line("posle omp..");
  report::appendLogLine("posle sync it");  // "after sync it"
  Q_EMIT finished2(QString());
  exec();
}

}  // namespace app
