#pragma once

// Kept as a name only: measures are handled by modConvert, clsSize and
// clsAbbreviations, and nothing is left for this class to hold.
class clsUnitMeasure {};
