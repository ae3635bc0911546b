#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>

#include "ZyrColorArray.h"
#include "support/Colors.h"
#include "support/ZyrValues.h"

// Random sequences of operations on a few colour arrays that come to share and part again, each
// array beside plain bytes behind a shared pointer.

using test::Bytes;
using test::bytes;
using test::values;

namespace {

struct Model {
    int channel = 1;
    std::shared_ptr<Bytes> pixels = std::make_shared<Bytes>();

    int length() const { return static_cast<int>(pixels->size()) / channel; }
    bool has(int i) const { return i >= 0 && i < length(); }
    unsigned char& byte(int i, int c) const {
        return (*pixels)[static_cast<std::size_t>(i * channel + c)];
    }
};

unsigned char saturated(int value) {
    return static_cast<unsigned char>(value < 0 ? 0 : value > 255 ? 255 : value);
}

unsigned char lowByte(int value) {
    return static_cast<unsigned char>((value % 256 + 256) % 256);
}

/// The channels in the order that they have in memory.
std::vector<int> stored(const ZyrColor& color, int channel) {
    if (channel == 1) return {color.r};
    std::vector<int> all{color.b, color.g, color.r, color.a};
    all.resize(static_cast<std::size_t>(channel));
    return all;
}

class ColorsBesideModels {
    static constexpr int kArrays = 3;

public:
    void step() {
        const int target = *rc::gen::inRange(0, kArrays);
        const int source = *rc::gen::inRange(0, kArrays);
        const int number = *rc::gen::inRange(-2, 6);
        const ZyrColor color(channelValue(), channelValue(), channelValue(), channelValue());
        switch (*rc::gen::inRange(0, 6)) {
            case 0:
                share(target, source, number);
                break;
            case 1:
                create(target, number, *rc::gen::element(1, 3, 4));
                break;
            case 2:
                append(target, source);
                break;
            case 3:
                replace(target, number, color);
                break;
            case 4:
                setAll(target, color);
                break;
            default:
                read(target, number);
        }
    }

    void check() const {
        for (int k = 0; k < kArrays; ++k) {
            RC_ASSERT(bytes(arrays_[k]) == *models_[k].pixels);
            RC_ASSERT(arrays_[k].Length() == models_[k].length());
            RC_ASSERT(arrays_[k].Channel() == (models_[k].length() == 0 ? 1 : models_[k].channel));
        }
    }

private:
    static int channelValue() { return *rc::gen::inRange(-300, 600); }

    void share(int target, int source, int choice) {
        if (choice < 3) {
            arrays_[target] = arrays_[source];
            models_[target] = models_[source];
        } else {
            arrays_[target] = arrays_[source].DeepCopy();
            models_[target] = {models_[source].channel,
                               std::make_shared<Bytes>(*models_[source].pixels)};
        }
    }

    void create(int target, int length, int channel) {
        if (length < 0) {
            arrays_[target].Clear();
            models_[target] = Model();
            return;
        }
        arrays_[target].Create(length, channel);
        arrays_[target].SetColor(length);
        models_[target] = {channel, std::make_shared<Bytes>(length * channel, length)};
    }

    void append(int target, int source) {
        const Model other = models_[source];
        Model& model = models_[target];
        if (model.length() + other.length() > 100) return;
        arrays_[target].Append(arrays_[source]);
        if (other.length() == 0 || (model.length() != 0 && model.channel != other.channel)) return;
        auto joined = std::make_shared<Bytes>(*model.pixels);
        joined->insert(joined->end(), other.pixels->begin(), other.pixels->end());
        model = {other.channel, joined};
    }

    void replace(int target, int i, ZyrColor color) {
        const Model& model = models_[target];
        arrays_[target].Replace(i, color);
        if (!model.has(i)) return;
        const std::vector<int> channels = stored(color, model.channel);
        for (int c = 0; c < model.channel; ++c)
            model.byte(i, c) = lowByte(channels[static_cast<std::size_t>(c)]);
    }

    void setAll(int target, const ZyrColor& color) {
        const Model& model = models_[target];
        arrays_[target].SetColor(color);
        const std::vector<int> channels = stored(color, model.channel);
        for (int i = 0; i < model.length(); ++i)
            for (int c = 0; c < model.channel; ++c)
                model.byte(i, c) = saturated(channels[static_cast<std::size_t>(c)]);
    }

    void read(int target, int i) {
        const Model& model = models_[target];
        ZyrColor subscripted;
        ZyrColor selected(-1, -2, -3, -4);
        ZyrColor out = selected;
        if (model.has(i)) {
            const bool grey = model.channel == 1;
            subscripted = grey
                              ? ZyrColor(model.byte(i, 0), 0, 0, 255)
                              : ZyrColor(model.byte(i, 2), model.byte(i, 1), model.byte(i, 0), 255);
            selected = grey ? ZyrColor(subscripted.r, subscripted.r, subscripted.r, -4)
                            : ZyrColor(subscripted.r, subscripted.g, subscripted.b, -4);
            if (model.channel == 4) subscripted.a = selected.a = model.byte(i, 3);
        }
        arrays_[target].Select(i, &out);
        RC_ASSERT(values(out) == values(selected));
        RC_ASSERT(values(arrays_[target][i]) == values(subscripted));
    }

    ZyrColorArray arrays_[kArrays];
    Model models_[kArrays];
};

}  // namespace

RC_GTEST_PROP(ColorModel, ColoursFollowPlainBytesThroughAnyOperations, ()) {
    ColorsBesideModels colors;
    const int steps = *rc::gen::inRange(1, 300);
    for (int k = 0; k < steps; ++k) {
        colors.step();
        colors.check();
    }
}
