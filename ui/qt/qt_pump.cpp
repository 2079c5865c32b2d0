#include "ui/qt/qt_pump.h"

#include <QCoreApplication>

namespace tallyo {

void QtPump::RunPending() { QCoreApplication::processEvents(QEventLoop::AllEvents); }

}  // namespace tallyo
