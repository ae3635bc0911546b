#include "files/ImageFile.h"
#include "formats/Readers.h"

namespace zyr {

Scene readPicture(const std::string& path) {
    const cv::Mat image = readImage(path);
    Scene scene;
    scene.kind = Scene::Range;
    if (image.channels() == 1)
        scene.range =
            ZyrRangeImage(image.data, image.cols, image.rows, static_cast<int>(image.step),
                          image.depth(), 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0);
    else
        scene.range = readPictureValues(path);
    if (image.channels() > 1) scene.leftOut.push_back("colours: turned into grey values");
    return scene;
}

}  // namespace zyr
