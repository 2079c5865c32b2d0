#pragma once

#include <QCoreApplication>
#include <QPushButton>
#include <QWidget>

#include "ui/qt/control_binding.h"
#include "ui/qt/elided_label.h"
#include "ui/qt/web_page_viewer.h"

namespace tallyo {

// The web page screen: the viewer with its address, and the ways back and out to a real browser.
class WebPagePanel : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(WebPagePanel)

 public:
  WebPagePanel(ControlBinding& binding, const OwnDocuments& documents, QWidget* parent);

 private:
  void ShowPlace();

  ElidedLabel* place_;
  QPushButton* back_;
  QPushButton* outside_;
  WebPageViewer* viewer_;
};

}  // namespace tallyo
