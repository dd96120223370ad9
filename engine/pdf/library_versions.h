// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <GfxState.h>
#include <Object.h>
#include <Stream.h>

#include <memory>
#include <type_traits>
#include <utility>

/// Bridges the versions of the PDF library, whose interface changes: 22.12 to 25.03. What a version offers is found out
/// by its types. All functions are templates, so that only what fits the version is compiled.
namespace quorra {

/// Whether the device is told of a form with its dictionary.
template <typename Device, typename = void>
struct HasFormDictionary : std::false_type
{
};

template <typename Device>
struct HasFormDictionary<
    Device, std::void_t<decltype(std::declval<Device &>().beginForm(std::declval<Object *>(), std::declval<Ref>()))>>
    : std::true_type
{
};

/// An output device of the library that is told where the form with an object number begins and ends.
template <typename Device, bool withDictionary = HasFormDictionary<Device>::value>
class FormDevice : public Device
{
public:
    using Device::Device;
    void beginForm(Ref id) override { formBegins(id.num); }
    void endForm(Ref /*id*/) override { formEnds(); }

protected:
    virtual void formBegins(int objectNumber) = 0;
    virtual void formEnds() = 0;
};

template <typename Device>
class FormDevice<Device, true> : public Device
{
public:
    using Device::Device;
    void beginForm(Object * /*form*/, Ref id) override { formBegins(id.num); }
    void endForm(Object * /*form*/, Ref /*id*/) override { formEnds(); }

protected:
    virtual void formBegins(int objectNumber) = 0;
    virtual void formEnds() = 0;
};

/// Returns the map from the samples of an image with `bits` bits per component to colours.
template <typename Map = GfxImageColorMap>
std::unique_ptr<Map> colourMapOf(int bits, Object *decode, std::unique_ptr<GfxColorSpace> space)
{
    if constexpr (std::is_constructible_v<Map, int, Object *, std::unique_ptr<GfxColorSpace>>) {
        return std::make_unique<Map>(bits, decode, std::move(space));
    } else {
        return std::make_unique<Map>(bits, decode, space.release());
    }
}

/// Goes to the start of the stream; returns whether it can be read, if the library tells.
template <typename Source>
bool rewind(Source &stream)
{
    if constexpr (std::is_void_v<decltype(stream.reset())>) {
        stream.reset();
        return true;
    } else {
        return stream.reset();
    }
}

} // namespace quorra
