#pragma once

#include "demo/Mailbag.h"

// Each adds the messages of one theme.
void addHarbourThreads(Mailbag &bag);
void addOfficeThreads(Mailbag &bag);
void addFamilyThreads(Mailbag &bag);
void addArchivedThreads(Mailbag &bag);
void addNewsletters(Mailbag &bag);
void addReceipts(Mailbag &bag);
void addServiceNotes(Mailbag &bag);
void addLanguages(Mailbag &bag);
void addAttachments(Mailbag &bag);
void addInvitations(Mailbag &bag);
void addMachineMail(Mailbag &bag);
void addBrokenMail(Mailbag &bag);
void addExtremeMail(Mailbag &bag);
void addJunkMail(Mailbag &bag);
void addOwnMail(Mailbag &bag);
