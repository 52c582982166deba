#pragma once

namespace Quillstacks {

/// The colours of the look, by what they are for. Theme gives each its value in the present scheme.
enum class ColorRole {
    // grounds
    window,
    sidebar,
    sheet,
    card,
    cardEdge, ///< clear in dark
    field,
    popover,
    panel,
    scrim,
    // lines
    separator,
    separatorStrong,
    border,
    borderHover,
    // text
    text,
    text2,
    text3,
    text4, ///< for what is disabled only
    onAccent,
    quaternary, ///< a fill, never text
    // accent and selection
    accent,
    accentFill,
    accentFillHover,
    accentFillPress,
    selectSide,  ///< the selected row of a side bar
    fillHover,   ///< a hovered row
    fillPress,   ///< a pressed or hovered control without a ground
    fillSelect,  ///< a selected row
    fillChip,    ///< a chip's ground
    fillChipOn,  ///< the ground of a chip that is switched on
    chipOnEdge,  ///< and its edge
    quickSelect, ///< the selected row of quick access
    quickSelectEdge,
    versionSelect, ///< the selected row of the version list
    textSelection,
    // controls
    control,
    controlEdge,
    controlHover,
    segmentTrack,
    segmentOn,
    switchOff,
    scrollThumb,
    // system colours
    red,
    orange,
    green,
    blue,
    purple,
    redFill, ///< with white text
    count
};

/// Translucent grounds; opaque where the desktop does not composite.
enum class Material {
    regular,
    raised,
    ultraThin ///< a wash over the material below
};

} // namespace Quillstacks
