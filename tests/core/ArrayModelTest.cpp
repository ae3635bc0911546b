#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "support/ArrayElements.h"

// Random sequences of operations on a few arrays that come to share and part again, each array
// beside a plain vector behind a shared pointer.

using test::element;
using test::ElementOf;
using test::flat;
using test::kHasSwap;
using test::values;

namespace {

template <class Array>
class ArraysBesideModels {
    using Element = ElementOf<Array>;
    using Model = std::vector<Element>;
    static constexpr int kArrays = 4;
    static constexpr std::size_t kLongest = 200;

public:
    void step() {
        const int target = *rc::gen::inRange(0, kArrays);
        const int source = *rc::gen::inRange(0, kArrays);
        const int i = *rc::gen::inRange(-2, 8);
        const int j = *rc::gen::inRange(-2, 8);
        const Element fresh = element<Element>(*rc::gen::inRange(1, 100));
        switch (*rc::gen::inRange(0, 7)) {
            case 0:
                share(target, source, i);
                break;
            case 1:
                grow(target, source, i, fresh);
                break;
            case 2:
                insertOrRemove(target, i, j, fresh);
                break;
            case 3:
                overwrite(target, i, j, fresh);
                break;
            case 4:
                read(target, i, fresh);
                break;
            case 5:
                swap(target, i, j);
                break;
            default:
                resize(target, i);
        }
    }

    void check() const {
        for (int k = 0; k < kArrays; ++k) {
            RC_ASSERT(values(arrays_[k]) == flat(*models_[k]));
            RC_ASSERT(static_cast<std::size_t>(arrays_[k].Length()) == models_[k]->size());
            RC_ASSERT((arrays_[k].Data() == nullptr) == models_[k]->empty());
        }
    }

private:
    static bool has(const Model& model, int i) {
        return i >= 0 && i < static_cast<int>(model.size());
    }

    static Element& at(Model& model, int i) { return model[static_cast<std::size_t>(i)]; }

    void share(int target, int source, int choice) {
        if (choice < 4) {
            arrays_[target] = arrays_[source];
            models_[target] = models_[source];
        } else {
            arrays_[target] = arrays_[source].DeepCopy();
            models_[target] = std::make_shared<Model>(*models_[source]);
        }
    }

    void grow(int target, int source, int i, const Element& fresh) {
        Model& model = *models_[target];
        if (model.size() + models_[source]->size() > kLongest) return;
        if (i < 0) {
            arrays_[target].Append(arrays_[source]);
            const Model added = *models_[source];
            model.insert(model.end(), added.begin(), added.end());
        } else if (has(model, i)) {
            arrays_[target].Append(arrays_[target][i]);
            model.push_back(Element(at(model, i)));
        } else {
            arrays_[target].Append(fresh);
            model.push_back(fresh);
        }
    }

    void insertOrRemove(int target, int i, int j, Element fresh) {
        Model& model = *models_[target];
        if (j % 2 == 0) {
            arrays_[target].Remove(i);
            if (has(model, i)) model.erase(model.begin() + i);
            return;
        }
        const bool own = has(model, j);
        const Element inserted = own ? at(model, j) : fresh;
        arrays_[target].Insert(i, own ? arrays_[target][j] : fresh);
        if (has(model, i)) model.insert(model.begin() + i, inserted);
    }

    void overwrite(int target, int i, int j, Element fresh) {
        Model& model = *models_[target];
        if (j % 2 == 0)
            arrays_[target].Replace(i, fresh);
        else
            arrays_[target][i] = fresh;
        if (has(model, i)) at(model, i) = fresh;
    }

    void read(int target, int i, Element out) {
        Model& model = *models_[target];
        const Element element = has(model, i) ? at(model, i) : Element();
        RC_ASSERT(flat(Model{std::as_const(arrays_[target])[i]}) == flat(Model{element}));
        RC_ASSERT(flat(Model{arrays_[target][i]}) == flat(Model{element}));
        const Element selected = has(model, i) ? element : out;
        arrays_[target].Select(i, &out);
        RC_ASSERT(flat(Model{out}) == flat(Model{selected}));
    }

    void swap([[maybe_unused]] int target, [[maybe_unused]] int i, [[maybe_unused]] int j) {
        if constexpr (kHasSwap<Array>) {
            Model& model = *models_[target];
            arrays_[target].Swap(i, j);
            if (has(model, i) && has(model, j)) std::swap(at(model, i), at(model, j));
        }
    }

    void resize(int target, int n) {
        if (n < 0) {
            arrays_[target].Clear();
            models_[target]->clear();
        } else {
            arrays_[target].SetSize(n);
            models_[target]->resize(static_cast<std::size_t>(n), Element());
        }
    }

    Array arrays_[kArrays];
    std::shared_ptr<Model> models_[kArrays] = {std::make_shared<Model>(), std::make_shared<Model>(),
                                               std::make_shared<Model>(),
                                               std::make_shared<Model>()};
};

template <class Array>
void followsTheModel() {
    ArraysBesideModels<Array> arrays;
    const int steps = *rc::gen::inRange(1, 300);
    for (int k = 0; k < steps; ++k) {
        arrays.step();
        arrays.check();
    }
}

}  // namespace

RC_GTEST_PROP(ArrayModel, VectorsFollowAPlainVectorThroughAnyOperations, ()) {
    followsTheModel<ZyrVector3dArray>();
}

RC_GTEST_PROP(ArrayModel, DoublesFollowAPlainVectorThroughAnyOperations, ()) {
    followsTheModel<Zyr3DDoubleArray>();
}

RC_GTEST_PROP(ArrayModel, IntegersFollowAPlainVectorThroughAnyOperations, ()) {
    followsTheModel<Zyr3DIntArray>();
}

RC_GTEST_PROP(ArrayModel, BufferOfVectorsIsMarkedVectorByVector, (std::vector<int> numbers)) {
    std::vector<double> buffer(numbers.begin(), numbers.end());
    buffer.resize(buffer.size() / 3 * 3);
    const double mark = *rc::gen::inRange(-3, 4);
    std::vector<double> marked;
    for (std::size_t k = 0; k < buffer.size(); k += 3) {
        const bool hole = buffer[k] == mark || buffer[k + 1] == mark || buffer[k + 2] == mark;
        for (std::size_t c = k; c < k + 3; ++c) marked.push_back(hole ? test::kInvalid : buffer[c]);
    }
    const ZyrVector3dArray array(buffer.data(), static_cast<int>(buffer.size()), mark);
    RC_ASSERT(values(array) == marked);
}
