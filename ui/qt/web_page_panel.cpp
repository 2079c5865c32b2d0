#include "ui/qt/web_page_panel.h"

#include <QCoreApplication>
#include <QDesktopServices>

#include "ui/qt/panel_layout.h"

namespace tallyo {
namespace {

QPushButton* NewButton(const QString& caption, const QString& name, QWidget* parent) {
  auto* const button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setAccessibleName(QString(caption).remove('&'));
  return button;
}

}  // namespace

WebPagePanel::WebPagePanel(ControlBinding& binding, const OwnDocuments& documents, QWidget* parent)
    : QWidget(parent),
      place_(new ElidedLabel(this)),
      back_(NewButton(tr("&Back"), "WebBack", this)),
      outside_(NewButton(tr("Open in b&rowser"), "OpenInBrowser", this)),
      viewer_(new WebPageViewer(documents, this)) {
  WebViewer& control = binding.Form().WB1;
  viewer_->setObjectName("WB1");
  viewer_->setAccessibleName(tr("Web page"));
  place_->setBuddy(viewer_);
  viewer_->OnMoved = [this] { ShowPlace(); };
  binding.View().Follow(control, [this, &control] {
    if (!control.Address().empty()) {
      viewer_->Open(control.Address());
    }
  });
  connect(back_, &QPushButton::clicked, this, [this] { viewer_->GoBack(); });
  connect(outside_, &QPushButton::clicked, this,
          [this] { QDesktopServices::openUrl(viewer_->Address()); });

  QVBoxLayout* const column = PanelLayout(*this);
  auto* const row = new QHBoxLayout;
  row->addWidget(back_);
  row->addWidget(place_, 1);
  row->addWidget(outside_);
  column->addLayout(row);
  column->addWidget(viewer_, 1);
  ShowPlace();
}

void WebPagePanel::ShowPlace() {
  const QUrl& address = viewer_->Address();
  back_->setEnabled(viewer_->CanGoBack());
  outside_->setEnabled(address.scheme() == "http" || address.scheme() == "https");
  const QString shown = address.isLocalFile() ? address.fileName() : address.toDisplayString();
  place_->setText(viewer_->IsLoading() ? tr("Loading %1").arg(shown) : shown);
}

}  // namespace tallyo
