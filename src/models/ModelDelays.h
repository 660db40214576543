#pragma once

/// How long models gather changes before they act, in milliseconds. The defaults are the program's; tests
/// shorten them before they create a model.
struct ModelDelays {
    int positions = 50;    ///< layout of stripes and memo icons after the text changed its size
    int reload = 50;       ///< fetch of an answer's highlights or memos that was asked for with a delay
    int codingStats = 50;  ///< shares of coded text after a coding changed
    int comboBox = 200;    ///< reset of a combo box after its source changed
    int hierarchy = 500;   ///< levels below a main kerno after kernos changed
};

/// The delays in force.
inline ModelDelays& modelDelays() {
    static ModelDelays delays;
    return delays;
}
