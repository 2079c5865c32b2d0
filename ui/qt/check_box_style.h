#pragma once

#include <QProxyStyle>

namespace tallyo {

// The person's style with an outline around the boxes to tick where the palette is dark: some
// styles draw it darker than the ground, and an empty box is then not to be seen.
class CheckBoxStyle : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace tallyo
