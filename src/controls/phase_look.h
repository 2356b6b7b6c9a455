#pragma once

#include "stripe/Progress.h"

#include <QColor>

class QPainter;
class QRectF;

namespace vexa {

// How the state of a run looks wherever it is shown: each has one colour and one shape.

/// For the dark ground of the displays.
QColor phaseColor(Phase phase);

/// A square, a triangle, two bars, an arrow to a bar, or a reel.
void paintPhase(QPainter& painter, const QRectF& square, Phase phase);

} // namespace vexa
