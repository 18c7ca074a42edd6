#pragma once

#include <QPixmap>

namespace vendrix {

// The pictures of the windows, drawn at run time so that no image file has
// to travel with the program.

// The logo array of the splash and the main window: 0 the ordinary logo,
// 1 to 5 its holiday versions (see IndiceLogo).
QPixmap imagen_logo(int index);

// The status bar's image list: 19 to 27 are the indicator pictures (error
// off/on, printer off/on, grey, internet on, busy off/on). Any other index
// gives an empty picture.
QPixmap imagen_indicador(int index);

} // namespace vendrix
