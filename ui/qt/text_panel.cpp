#include "ui/qt/text_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>

#include "ui/qt/panel_layout.h"
#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

// False where the file could not be written.
bool WriteWhole(const QString& name, const std::string& text) {
  QSaveFile file(name);
  return file.open(QIODevice::WriteOnly) &&
         file.write(text.data(), static_cast<qint64>(text.size())) ==
             static_cast<qint64>(text.size()) &&
         file.commit();
}

}  // namespace

TextPanel::TextPanel(ControlBinding& binding, QWidget* parent)
    : QWidget(parent), text_(binding.Form().Text4), field_(new QPlainTextEdit(this)) {
  //: What the field on the text screen is called when it is read aloud
  field_->setAccessibleName(tr("Text"));
  field_->setTabChangesFocus(true);
  binding.Bind(binding.Form().Text4, *field_, "Text4");
  field_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* const copy = new QPushButton(tr("&Copy"), this);
  copy->setObjectName("CopyText");
  copy->setAccessibleName(tr("Copy"));
  auto* const save = new QPushButton(tr("&Save As..."), this);
  save->setObjectName("SaveTextAs");
  save->setAccessibleName(tr("Save As"));
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(save, &QPushButton::clicked, this, [this] { SaveAs(); });

  QVBoxLayout* const column = PanelLayout(*this);
  column->addWidget(field_, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(copy);
  buttons->addWidget(save);
  column->addLayout(buttons);
}

// On the clipboard a line ends as in every text of the desktop; the file keeps the text's own ends.
void TextPanel::Copy() const {
  QApplication::clipboard()->setText(Shown(text_.Text()).replace("\r\n", "\n"));
}

void TextPanel::SaveAs() {
  const QString name = QFileDialog::getSaveFileName(this, tr("Save As"), "tallyo.txt",
                                                    tr("Text files (*.txt);;All files (*)"));
  if (!name.isEmpty() && !WriteWhole(name, text_.Text())) {
    QMessageBox box(QMessageBox::Critical, "Tallyo", tr("The file cannot be written: %1").arg(name),
                    QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
  }
}

// A second font is read from the disk once somebody wants to see it.
void TextPanel::showEvent(QShowEvent* event) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(this->font().pointSizeF());
  field_->setFont(font);
  QWidget::showEvent(event);
}

}  // namespace tallyo
