# Gives the targets opencv_core and opencv_imgcodecs (and opencv_imgproc for the tools): from
# OpenCV's own package file where one is installed, else from the bare libraries and headers, since
# Debian's small packages libopencv-core-dev and libopencv-imgcodecs-dev carry no package file.
find_package(OpenCV QUIET COMPONENTS core imgproc imgcodecs)
if(NOT OpenCV_FOUND)
    find_path(ZYR_OPENCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4 REQUIRED)
    foreach(module core imgproc imgcodecs)
        find_library(ZYR_OPENCV_${module} opencv_${module} REQUIRED)
        add_library(opencv_${module} SHARED IMPORTED)
        set_target_properties(opencv_${module} PROPERTIES
            IMPORTED_LOCATION ${ZYR_OPENCV_${module}}
            INTERFACE_INCLUDE_DIRECTORIES ${ZYR_OPENCV_INCLUDE_DIR})
    endforeach()
endif()
