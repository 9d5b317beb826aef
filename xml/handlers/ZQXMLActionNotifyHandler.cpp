#include "xml/handlers/ZQXMLActionNotifyHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "zqxml/free.h"

namespace {

// The settings of mail are there from the start of the first of their elements on.
template <auto kMember>
void loadAdvanced(ZQFilterActionNotify& notify, const LeafText& leaf) {
  replaceText(notify.advanced->*kMember, leaf.text);
}

// Deliberate: the text is kept and the document refused as if memory had run out.
void loadFrom(ZQFilterActionNotify& notify, const LeafText& leaf) {
  loadAdvanced<&ZQFilterActionNotifyAdvanced::from>(notify, leaf);
  throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
}

constexpr Leaf<ZQFilterActionNotify> kLeaves[] = {
    {tag_user, loadText<&ZQFilterActionNotify::user>},
    {tag_notifyText, loadText<&ZQFilterActionNotify::notifyText>},
    {tag_priority, loadSigned<&ZQFilterActionNotify::priority>},
    {tag_mechanism, loadSigned<&ZQFilterActionNotify::mechanism>},
    {tag_mechanismXRef, loadSigned<&ZQFilterActionNotify::mechanismXRef>},
    {tag_subject, loadText<&ZQFilterActionNotify::subject>},
    {tag_behavior, loadSigned<&ZQFilterActionNotify::behavior>},
    {tag_permission, loadSigned<&ZQFilterActionNotify::permission>},
    {tag_fieldIncludeType, loadWord<&ZQFilterActionNotify::fieldIncludeType, ENUM_NOTIFY_FIELDS>},
    {tag_from, loadFrom},
    {tag_replyTo, loadAdvanced<&ZQFilterActionNotifyAdvanced::replyTo>},
    {tag_cc, loadAdvanced<&ZQFilterActionNotifyAdvanced::cc>},
    {tag_bcc, loadAdvanced<&ZQFilterActionNotifyAdvanced::bcc>},
    {tag_organization, loadAdvanced<&ZQFilterActionNotifyAdvanced::organization>},
    {tag_mailboxName, loadAdvanced<&ZQFilterActionNotifyAdvanced::mailboxName>},
    {tag_headerTemplate, loadAdvanced<&ZQFilterActionNotifyAdvanced::headerTemplate>},
    {tag_footerTemplate, loadAdvanced<&ZQFilterActionNotifyAdvanced::footerTemplate>},
    {tag_contentTemplate, loadAdvanced<&ZQFilterActionNotifyAdvanced::contentTemplate>},
};

bool isAdvanced(int tag) {
  switch (tag) {
    case tag_from:
    case tag_replyTo:
    case tag_cc:
    case tag_bcc:
    case tag_organization:
    case tag_mailboxName:
    case tag_headerTemplate:
    case tag_footerTemplate:
    case tag_contentTemplate:
      return true;
    default:
      return false;
  }
}

}  // namespace

ZQXMLActionNotifyHandler::ZQXMLActionNotifyHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves), fieldIds(info) {}

void ZQXMLActionNotifyHandler::Init(ZQFilterActionNotify* notify) {
  currentTag = 0;
  CleanReferences();
  target = notify;
  *target = {};
}

void ZQXMLActionNotifyHandler::PreProcess(int tag) {
  if (tag == tag_fieldIDList) {
    giveTo(fieldIds, target->fieldIdList, FreeZQInternalIdList);
  }
}

void ZQXMLActionNotifyHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_notify) {
    leaves.empty();
    return;
  }
  if (!leaves.open(tag)) {
    refuseElement();
  }
  if (isAdvanced(tag) && target->advanced == nullptr) {
    target->advanced = newRecord<ZQFilterActionNotifyAdvanced>();
  }
  currentTag = tag;
}

void ZQXMLActionNotifyHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionNotifyHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_notify) {
    refuseElement();
  }
}

void ZQXMLActionNotifyHandler::PostProcess(int tag) {
  if (tag == tag_notify) {
    handlerStack->Pop();
  }
}

void ZQXMLActionNotifyHandler::CleanReferences() {}
