// A library needs a source; the pictures themselves come from the resource beside it and are found by their path.
namespace
{
[[maybe_unused]] constexpr bool HoldsPicturesOnly = true;
}
