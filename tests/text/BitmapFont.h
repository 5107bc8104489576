// A small bitmap font in BDF, as X11 used them: 'A' (5 x 3 pixels), 'j' (2 x 4, one row below the
// baseline) and the space, in the size of 4 pixels only.
#pragma once

#include <string>

namespace OrlekTest {

inline std::string bitmapFont() {
    return "STARTFONT 2.1\n"
           "FONT -test-Tiny-Medium-R-Normal--4-40-72-72-C-60-ISO10646-1\n"
           "SIZE 4 72 72\n"
           "FONTBOUNDINGBOX 5 4 0 -1\n"
           "STARTPROPERTIES 4\n"
           "FONT_ASCENT 3\n"
           "FONT_DESCENT 1\n"
           "CHARSET_REGISTRY \"ISO10646\"\n"
           "CHARSET_ENCODING \"1\"\n"
           "ENDPROPERTIES\n"
           "CHARS 3\n"
           "STARTCHAR space\nENCODING 32\nSWIDTH 500 0\nDWIDTH 3 0\nBBX 0 0 0 0\nBITMAP\nENDCHAR\n"
           "STARTCHAR A\nENCODING 65\nSWIDTH 1000 0\nDWIDTH 6 0\nBBX 5 3 0 0\n"
           "BITMAP\n20\nF8\n88\nENDCHAR\n"
           "STARTCHAR j\nENCODING 106\nSWIDTH 500 0\nDWIDTH 3 0\nBBX 2 4 0 -1\n"
           "BITMAP\n40\n40\n40\n80\nENDCHAR\n"
           "ENDFONT\n";
}

}  // namespace OrlekTest
