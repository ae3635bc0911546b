# Gives a target opencv_<module> for each module named: from OpenCV's own package file where one is
# installed, else from the bare library and headers, since Debian's small packages
# libopencv-core-dev and libopencv-imgcodecs-dev carry no package file.
#   zyr_find_opencv([REQUIRED] MODULE...)
# The package file that is installed uses this too.
function(zyr_find_opencv)
    set(modules ${ARGV})
    set(required)
    if("REQUIRED" IN_LIST modules)
        set(required REQUIRED)
        list(REMOVE_ITEM modules REQUIRED)
    endif()
    find_package(OpenCV QUIET COMPONENTS ${modules})
    if(OpenCV_FOUND)
        return()
    endif()
    find_path(ZYR_OPENCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4 ${required})
    mark_as_advanced(ZYR_OPENCV_INCLUDE_DIR)
    foreach(module ${modules})
        find_library(ZYR_OPENCV_${module} opencv_${module} ${required})
        mark_as_advanced(ZYR_OPENCV_${module})
        if(NOT TARGET opencv_${module} AND ZYR_OPENCV_INCLUDE_DIR AND ZYR_OPENCV_${module})
            add_library(opencv_${module} SHARED IMPORTED GLOBAL)
            set_target_properties(opencv_${module} PROPERTIES
                IMPORTED_LOCATION ${ZYR_OPENCV_${module}}
                INTERFACE_INCLUDE_DIRECTORIES ${ZYR_OPENCV_INCLUDE_DIR})
        endif()
    endforeach()
endfunction()
