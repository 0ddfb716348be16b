#pragma once

// A name only: measures are handled by modConvert, clsSize and
// clsAbbreviations, so this class holds nothing.
class clsUnitMeasure {};
