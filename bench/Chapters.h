#pragma once

#include <QString>

class AppDriver;
class Profile;
class RawServer;

/// Record decoding and the event stream's parser, on texts in memory.
void measureParsing(const RawServer &server);
/// From the start of the process to what a person waits for.
void measureStart(const Profile &signedOut, const Profile &signedIn);
/// Memory and processor time of the program and its helpers.
void measureWeight(const Profile &signedIn);
/// Pages of the message list and changes of folder.
void measureList(AppDriver &driver, const RawServer &server);
/// Opening messages one after the other.
void measureMessages(AppDriver &driver);
/// Messages of a thread, while the search for its others is quick and while it is slow.
void measureThreads(AppDriver &driver, const QString &serverAddress);
/// A big file from the click to the save panel.
void measureAttachment(AppDriver &driver, const RawServer &server);
/// Writing messages: new ones, replies to long ones, and big files that go along.
void measureWriting(AppDriver &driver);
/// Changes of one row and of a whole page. The mailbox is no longer the same after it.
void measureActions(AppDriver &driver, const RawServer &server);
