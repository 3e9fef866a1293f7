// How long this thread has worked, however busy the machine is. [ms]
#pragma once

double ThreadTime();

/// Bytes of memory in use that were asked for and not given back yet; 0 where the system does not tell.
double LiveBytes();
