#pragma once

#include <QtGlobal>

/// \file
/// Marks the classes that the shared library offers to other programs.
///
/// The build of the shared library defines VXREGIONOFINTEREST_BUILD; everybody else, a host that
/// links the library as well as one that compiles its sources straight in, defines nothing.
/// \def VXREGIONOFINTEREST_EXPORT
/// Stands in front of the name of every class that is offered.
#if defined(VXREGIONOFINTEREST_BUILD)
#define VXREGIONOFINTEREST_EXPORT Q_DECL_EXPORT
#else
#define VXREGIONOFINTEREST_EXPORT Q_DECL_IMPORT
#endif
