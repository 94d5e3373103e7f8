#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <type_traits>

namespace Tesmo
{
/// One bound callable: an object (or none) and a function, kept as byte images so that records of every kind have one
/// layout and compare by their bytes.
template <class R, class... Args>
struct Fp
{
    /// Large enough for a member function pointer of the Itanium C++ ABI, which is two words.
    static constexpr std::size_t ImageSize = 2 * sizeof(void*);
    using Image = std::array<std::byte, ImageSize>;

    Image target{};             ///< the object pointer; zero for a plain function
    std::size_t targetSize = 0; ///< bytes in use, 0 for a plain function
    Image method{};             ///< the member function pointer or function pointer
    std::size_t methodSize = 0; ///< bytes in use
    R (*invoker)(const Image& target, const Image& method, Args... args) = nullptr;

    /// Binds object and member; Object may be const.
    template <class Object, class Method>
    static Fp Bind(Object* object, Method member)
    {
        Fp record;
        record.targetSize = Store(record.target, object);
        record.methodSize = Store(record.method, member);
        record.invoker = [](const Image& targetImage, const Image& methodImage, Args... args) -> R
        { return (Load<Object*>(targetImage)->*Load<Method>(methodImage))(static_cast<Args>(args)...); };
        return record;
    }

    /// Binds a plain function.
    static Fp Bind(R (*function)(Args...))
    {
        Fp record;
        record.methodSize = Store(record.method, function);
        record.invoker = [](const Image&, const Image& methodImage, Args... args) -> R
        { return Load<R (*)(Args...)>(methodImage)(static_cast<Args>(args)...); };
        return record;
    }

    bool operator==(const Fp& other) const
    {
        return targetSize == other.targetSize && methodSize == other.methodSize && target == other.target &&
               method == other.method;
    }

private:
    template <class T>
    static std::size_t Store(Image& image, const T& value)
    {
        static_assert(sizeof(T) <= ImageSize && std::is_trivially_copyable_v<T>);
        std::memcpy(image.data(), &value, sizeof(T));
        return sizeof(T);
    }

    template <class T>
    static T Load(const Image& image)
    {
        T value;
        std::memcpy(&value, image.data(), sizeof(T));
        return value;
    }
};
} // namespace Tesmo
