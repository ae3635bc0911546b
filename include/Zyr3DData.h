#pragma once

/// Everything that libZyr3DData offers.

#include "LZF.h"
#include "Zyr3DArc.h"
#include "Zyr3DCircle.h"
#include "Zyr3DDoubleArray.h"
#include "Zyr3DEllipse.h"
#include "Zyr3DFileIO.h"
#include "Zyr3DInner.h"
#include "Zyr3DIntArray.h"
#include "Zyr3DLine.h"
#include "Zyr3DLineSegment.h"
#include "Zyr3DPlane.h"
#include "Zyr3DRect.h"
#include "Zyr3DTriangle.h"
#include "ZyrColor.h"
#include "ZyrColorArray.h"
#include "ZyrExport.h"
#include "ZyrPointCloud.h"
#include "ZyrPointCloudArray.h"
#include "ZyrVector3d.h"
#include "ZyrVector3dArray.h"
