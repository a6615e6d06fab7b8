// What velocity-depth models are made of: points, intervals, and the choices of their makers.
//
// Depths are absolute (altitude minus vertical depth) in metres, times are two-way times in
// milliseconds, velocities metres per second. Depths and times both fall on the way down, so times
// below the well head are negative. People give times that grow downwards: what makes models of
// such times says so, and stores them with the sign changed.
#pragma once

#include "NORLEX_propCopy.h"

#include <string>

// A point of a model.
struct vdm_data {
    std::wstring dt_id; // key of the row; "0" of the point that stands at the well head by itself
    double depth = 0.0;
    double time = 0.0;
};

// The stretch between two points.
struct NORLEX_vdmItem {
    double topDepth = 0.0;
    double botDepth = 0.0;
    double topTime = 0.0;
    double botTime = 0.0;
    double intervalVelocity = 0.0;
    double averageVelocity = 0.0; // from the first point of the model down to the bottom
    bool flag = false;            // for the host's use
};

// A stretch with a value: in depth or in time.
struct NORLEX_intervalValue {
    double top = 0.0;
    double bot = 0.0;
    std::wstring value;
};

// What the tops and bottoms of intervals are.
enum NORLEX_vdmType : int {
    NORLEX_vdmTypeDepth = 0, // absolute depths
    NORLEX_vdmTypeTime = 1,  // two-way times
};

// How data of people become a model. Times that are given grow downwards.
struct NORLEX_VDMcreateOptions {
    bool oneWay = false;  // times are one-way
    bool seconds = false; // times are in seconds
    // Depths of tables. Measured ones are converted along the survey.
    NORLEX_dataDirection depths = NORLEX_dataDirectionAbsolute;

    // Of a sonic log: where its integration begins, an absolute depth and the time there.
    double tieDepth = 0.0;
    double tieTime = 0.0;
    std::wstring units{}; // "us/m" or "us/ft"; empty: what the log's attribute "UNITS" says
    double maxGap = 10.0; // metres that the last value is carried across where there is none
    double step = 0.0;    // metres between two points of the model, or more; 0: all samples
};
