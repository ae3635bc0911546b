# Gives a target opencv_<module> for each module named: from OpenCV's own package file where one is
# installed, else from the bare library and headers, since Debian's small packages
# libopencv-core-dev and libopencv-imgcodecs-dev carry no package file.
function(zyr_find_opencv)
    find_package(OpenCV QUIET COMPONENTS ${ARGV})
    if(OpenCV_FOUND)
        return()
    endif()
    find_path(ZYR_OPENCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4 REQUIRED)
    foreach(module ${ARGV})
        find_library(ZYR_OPENCV_${module} opencv_${module} REQUIRED)
        add_library(opencv_${module} SHARED IMPORTED GLOBAL)
        set_target_properties(opencv_${module} PROPERTIES
            IMPORTED_LOCATION ${ZYR_OPENCV_${module}}
            INTERFACE_INCLUDE_DIRECTORIES ${ZYR_OPENCV_INCLUDE_DIR})
    endforeach()
endfunction()
