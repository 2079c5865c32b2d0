#pragma once

#include <QLabel>

namespace tallyo {

// A one-line text of any origin and length: shown as it stands, never as markup and never with an
// access key, with its end left out where there is no room. The tool tip then shows more of it.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QString Line() const;
  [[nodiscard]] bool Fits() const;
};

}  // namespace tallyo
