#pragma once

/// Everything that libZyr3DData offers.

#include "LZF.h"
#include "Zyr3DBox.h"
#include "Zyr3DDoubleArray.h"
#include "Zyr3DEllipsoid.h"
#include "Zyr3DFileIO.h"
#include "Zyr3DInner.h"
#include "Zyr3DIntArray.h"
#include "ZyrColor.h"
#include "ZyrColorArray.h"
#include "ZyrDualQuaternion.h"
#include "ZyrExport.h"
#include "ZyrMatrix3.h"
#include "ZyrMatrix4.h"
#include "ZyrPointCloud.h"
#include "ZyrPointCloudArray.h"
#include "ZyrQuaternion.h"
#include "ZyrVector3d.h"
#include "ZyrVector3dArray.h"
