#include "files/ImageFile.h"
#include "formats/Readers.h"

namespace zyr {

Scene readPicture(const std::string& path) {
    const ImageFile file = loadImageFile(path);
    const bool isGrey = file.image.channels() == 1;
    const cv::Mat values = isGrey ? file.image : greyOf(file);
    Scene scene;
    scene.kind = Scene::Range;
    scene.range =
        ZyrRangeImage(values.data, values.cols, values.rows, static_cast<int>(values.step),
                      values.depth(), 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0);
    if (!isGrey) scene.leftOut.push_back("colours: turned into grey values");
    return scene;
}

}  // namespace zyr
