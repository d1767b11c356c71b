#include "PropUiGuids.h"

#include "PropItemType.h"

// OdGUID(int, short, short, unsigned char[8]) spelled out, so the text form is the canonical one.
static OdGUID guid(unsigned int d1, unsigned short d2, unsigned short d3, unsigned long long d4)
{
  unsigned char bytes[8];
  for (int i = 0; i < 8; ++i)
    bytes[i] = static_cast<unsigned char>(d4 >> (56 - 8 * i));
  return OdGUID(static_cast<int>(d1), static_cast<short>(d2), static_cast<short>(d3), bytes);
}

const OdGUID PropUiGuidEmpty = guid(0x00000000u, 0x0000, 0x0000, 0x0000000000000000ull);
const OdGUID PropUiGuidActionToolButtons = guid(0x3ECE78B5u, 0x1C4B, 0x45A9, 0x8BE0F778F44B9D61ull);
const OdGUID PropUiGuidActionPushButtons = guid(0xDDE63B97u, 0xCEC8, 0x439A, 0x8A300EA082C3A668ull);
const OdGUID PropUiGuidLabel = guid(0x823A0A0Bu, 0xE20B, 0x4280, 0xBC94B9FBD32A974Bull);
const OdGUID PropUiGuidDouble = guid(0x5541A5EEu, 0xE07A, 0x4BBD, 0xB6802AA6DD1952C5ull);
const OdGUID PropUiGuidDistance = guid(0x690450A8u, 0x5D8F, 0x48EB, 0x93C59822AFF29697ull);
const OdGUID PropUiGuidAngle = guid(0xE05FB776u, 0x06F7, 0x4BB1, 0x846D7EEBF5183FA8ull);
const OdGUID PropUiGuidDoubleAlt = guid(0x97542FE2u, 0x5BD7, 0x4BCE, 0x8F321179222597DEull);
const OdGUID PropUiGuidText = guid(0x21B2FD57u, 0x2EB3, 0x41C3, 0x9087EABB15C411A8ull);
const OdGUID PropUiGuidInteger = guid(0x4572811Du, 0x78EB, 0x4F3F, 0x809E45334B2C7767ull);
const OdGUID PropUiGuidTextCombo = guid(0xECC81635u, 0x8185, 0x4CD9, 0x9DE697E2BD3C518Full);
const OdGUID PropUiGuidLayer = guid(0xFE6F696Bu, 0xFF32, 0x4A9A, 0xB54DD62761C984F8ull);
const OdGUID PropUiGuidColor = guid(0xC79E43A3u, 0x7CD2, 0x4697, 0x8C921CEBBAFC502Dull);
const OdGUID PropUiGuidLinetype = guid(0x4567F795u, 0x072C, 0x48A7, 0xBB368BB2D42040B4ull);
const OdGUID PropUiGuidLineweight = guid(0xCA0F9688u, 0x5893, 0x4CF7, 0x8E002EF11904785Aull);
const OdGUID PropUiGuidArrowhead = guid(0x861D16F1u, 0x688B, 0x418A, 0xB7F6590FF7E9A828ull);
const OdGUID PropUiGuidCoords2d = guid(0x5B95D0ADu, 0xB641, 0x4EF0, 0xBC51A8067FB0B33Cull);
const OdGUID PropUiGuidCoords2dAlt = guid(0x8B37D6BCu, 0xB708, 0x4C08, 0x9E785B2F45820DC1ull);
const OdGUID PropUiGuidScale2d = guid(0x4AB14678u, 0x3784, 0x4C3D, 0x91FBA9A1B7347C14ull);
const OdGUID PropUiGuidCoords3d = guid(0x20992313u, 0x069A, 0x4A72, 0x9644147C349FCBA6ull);
const OdGUID PropUiGuidCoords3dAlt = guid(0xCB6C3B73u, 0x506F, 0x4227, 0x9C6D010C0166E3D1ull);
const OdGUID PropUiGuidBool = guid(0x6B8E01F2u, 0x58F1, 0x4846, 0x92250C43BEFFCF58ull);
const OdGUID PropUiGuidBoolText = guid(0x85196EBCu, 0x5676, 0x41EE, 0xA53C4E493BAA84AEull);
const OdGUID PropUiGuidSwitch = guid(0x73145D41u, 0xDE2C, 0x4A86, 0xA328C88B443B6408ull);
const OdGUID PropUiGuidTextSwitch = guid(0x013EC2C5u, 0x1682, 0x42C6, 0x899B1D977BC65FD9ull);
const OdGUID PropUiGuidVariant = guid(0xF46B7439u, 0x2361, 0x40F1, 0xA76E9AF52E1C9409ull);
const OdGUID PropUiGuidList = guid(0x38780D60u, 0xFAFB, 0x4DAD, 0xBAB5F96C8B47D642ull);
const OdGUID PropUiGuidTable = guid(0x0A52CF0Bu, 0xC69D, 0x4763, 0xB07B511AA8C08C93ull);
const OdGUID PropUiGuidPushButtons = guid(0xCCFF7A78u, 0xE112, 0x4CA1, 0x832C56ABC9D5FF96ull);
const OdGUID PropUiGuidToolButtons = guid(0x8BEBD5E5u, 0x3C60, 0x447E, 0x9DCEE0A9851D5EC0ull);
const OdGUID PropUiGuidRadioButtons = guid(0x17C7A9C9u, 0x80F4, 0x4C1F, 0x8201B390E62C9F8Aull);
const OdGUID PropUiGuidButtons3x3 = guid(0x602BC1F5u, 0x322B, 0x4B43, 0xBDB7A499CCABF799ull);
const OdGUID PropUiGuidSlider = guid(0x59F8790Eu, 0x59D5, 0x42C5, 0x92ADF2134A65C9CEull);
const OdGUID PropUiGuidMultiTextCombo = guid(0x23DCA7BCu, 0x52CB, 0x4A75, 0x9044713A02B758F3ull);
const OdGUID PropUiGuidDate = guid(0x887BADB5u, 0x65BA, 0x497C, 0x95940AB95FD4D7B8ull);

PropNumberKind propNumberKindOf(const PropItemType* type)
{
  if (!type)
    return PropNumberKind::None;
  const OdGUID editor = type->editorGuid();
  if (editor == PropUiGuidInteger)
    return PropNumberKind::Integer;
  if (editor == PropUiGuidDouble || editor == PropUiGuidDistance || editor == PropUiGuidAngle)
    return PropNumberKind::Real;
  return PropNumberKind::None;
}
