#pragma once

#include <QtGlobal>

/// \file
/// Marks the classes that the shared library offers to other programs, as VXRegionOfInterestExport.h does.
/// \def VXCROP_EXPORT
/// Stands in front of the name of every class that is offered. The build of the shared library defines
/// VXCROP_BUILD; everybody else defines nothing.
#if defined(VXCROP_BUILD)
#define VXCROP_EXPORT Q_DECL_EXPORT
#else
#define VXCROP_EXPORT Q_DECL_IMPORT
#endif
