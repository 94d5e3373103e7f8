#pragma once

/// The compiler's current file and line: the last two arguments of an exception that is thrown here.
#define ThrowSite __FILE__, __LINE__
