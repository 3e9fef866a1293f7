// How the process asks the system for memory.
#pragma once

/// To be called first in main. Pictures of some megabytes come and go at a start; each would bring its pages in one
/// by one, which takes longer than to fill them. From here on they come from one piece of memory, in large pages
/// where the system has them to give. Does nothing where the system's library has no such settings. Failure: none.
void PrepareMemory();
