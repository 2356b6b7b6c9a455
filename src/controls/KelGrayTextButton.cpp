#include "controls/KelGrayTextButton.h"

#include "controls/gray_caption.h"

namespace vexa {

void KelGrayTextButton::awakeFromNib() { setGrayCaption(*this); }

} // namespace vexa
